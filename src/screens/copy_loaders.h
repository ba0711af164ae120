// Loaders of rectangles saved with COPY, and a walk that other kinds share.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

enum class CopyPalette {
  kNone,         // drawn without a palette
  kStandard,     // the standard colours
  kStamp,        // the standard colours, but paper (0) white and ink (1) black
  kBehindPixels, // 16 entries stored behind the pixels
};

// What tells one kind of rectangle file from another.
struct CopySettings {
  int32_t mostWidth; // pixels
  uint8_t bitsPerPixel;
  uint8_t colourMode;
  uint8_t colourCount;
  CopyPalette palette;
  bool highPixels; // pixels of the mode are twice as high as wide: 1:2 aspect unless the user has switched that off
  bool keepsVram;  // what a short file does not fill keeps its value
  bool refused;    // every file is reported as not valid: intended
};

// Opens the current path, checks the size, stores the settings, reads the pixels, renders.
void loadCopy(ViewerState &viewer, const CopySettings &settings);

void loadScreen5Copy(ViewerState &viewer);
void loadScreen6Copy(ViewerState &viewer);
void loadStamp(ViewerState &viewer); // a Screen 6 rectangle in black and white
void loadScreen7Copy(ViewerState &viewer);
void loadScreen8Copy(ViewerState &viewer);
void loadScreen10Copy(ViewerState &viewer); // Screens 10 and 11
void loadScreen12Copy(ViewerState &viewer);
