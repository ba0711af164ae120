// How many of the system's things the program holds, for those who look for leaks: where the environment names a file
// in KORILAN_COUNTS, they are written there at the end of the program. Counted by ourselves, since not every Windows
// tells.
#pragma once

#include <atomic>

struct ResourceCounts {
  std::atomic<int> files{0}; // and folders that are listed
  std::atomic<int> bitmaps{0};
  std::atomic<int> fonts{0};
};

ResourceCounts &resourceCounts();

// "files 0, bitmaps 0, fonts 0"
void writeResourceCounts();
