// Ctrl+C and the other signals that end the program: at once, and nothing half written stays.
#pragma once

void watchForInterrupt();
