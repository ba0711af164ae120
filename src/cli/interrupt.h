// Ctrl+C: what is being written ends, and nothing half written stays.
#pragma once

inline constexpr int kInterruptedStatus = 130; // as shells give a program that Ctrl+C has ended

// From now on Ctrl+C is noted; a second one ends the program at once.
void watchForInterrupt();

bool interrupted();
