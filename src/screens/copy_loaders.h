// Loaders of rectangles saved with COPY, and a walk that other kinds share. Each answers as FileKind::load.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

enum class CopyPalette {
  kNone,         // drawn without a palette
  kStandard,     // the standard colours
  kStamp,        // the standard colours, but paper (0) white and ink (1) black
  kBehindPixels, // 16 entries stored behind the pixels
};

// A kind of rectangle file.
struct CopySettings {
  int32_t maxWidth; // pixels
  uint8_t bitsPerPixel;
  uint8_t colourMode;
  uint8_t colourCount;
  CopyPalette palette;
  bool highPixels; // pixels are twice as high as wide: 1:2 aspect, unless disabled in Preferences
  bool keepsVram;  // bytes past the end of a short file keep their value
  bool refused;    // every file is reported as not valid: intended, a rectangle of YJK groups may begin inside a group
};

// Checks the size in the open file, stores the settings, reads palette and pixels.
bool loadCopy(ViewerState &viewer, const CopySettings &settings);

bool loadScreen5Copy(ViewerState &viewer);
bool loadScreen6Copy(ViewerState &viewer);
bool loadStamp(ViewerState &viewer); // a Screen 6 rectangle in black and white
bool loadScreen7Copy(ViewerState &viewer);
bool loadScreen8Copy(ViewerState &viewer);
bool loadScreen10Copy(ViewerState &viewer); // Screens 10 and 11
bool loadScreen12Copy(ViewerState &viewer);
