// What the Display menu sets: for all pictures, and kept from one start to the next.
#pragma once

#include <cstdint>

struct DisplaySettings {
  int32_t scale = 0;              // the chosen one; 0: the start value
  int32_t startScale = 1;         // of the screen's dots per inch
  bool fit = false;               // the largest scale that fits the window
  bool grid = false;              // lines between the pixels of an enlarged picture
  bool followChanges = true;      // a file that changes is opened again
  bool paletteOfSameName = false; // a palette file beside the picture replaces its colours
  bool orderByNumber = false;     // paging takes PIC2 before PIC10
};
