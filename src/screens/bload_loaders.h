// Loaders of video memory saved with BSAVE: the bitmap screens, and a walk that other kinds share.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <string_view>

enum class BloadPalette {
  kNone,     // hasPalette and paletteFilePos keep their values: intended
  kStandard, // the standard colours
  kInFile,   // stored at paletteAddress
};

// What tells one kind of BLOAD file from another.
struct BloadSettings {
  int32_t endLowest; // bounds of the end address, as signed numbers
  int32_t endHighest;
  uint8_t bitsPerPixel;
  int16_t colourMode; // kKeptMode: keeps its value
  int32_t imageWidth;
  int32_t imageHeight;
  uint8_t colourCount;
  BloadPalette palette;
  int32_t paletteAddress;           // in video memory
  std::string_view packedExtension; // the extension that may hold a packed body; under the mode's other extensions a
                                    // file without the plain identifier ends in silence: intended
};

inline constexpr int16_t kKeptMode = -1;

// Opens the current path, checks the header, stores the settings, reads palette and body, renders.
void loadBload(ViewerState &viewer, const BloadSettings &settings);

void loadScreen5(ViewerState &viewer);
void loadScreen6(ViewerState &viewer);
void loadScreen7(ViewerState &viewer);
void loadScreen8(ViewerState &viewer);
void loadScreen10(ViewerState &viewer); // Screens 10 and 11 differ only in how BASIC draws on them
void loadScreen12(ViewerState &viewer);
