// Ctrl+C: stops writing, and leaves no incomplete file.
#pragma once

inline constexpr int kInterruptedStatus = 130; // 128 + SIGINT, as in shells

// Installs the handler: the first Ctrl+C sets interrupted(), a second one ends the program.
void watchForInterrupt();

bool interrupted();
