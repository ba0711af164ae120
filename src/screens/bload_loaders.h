// Loaders of video memory saved with BSAVE, and a walk that other kinds share. Each answers as FileKind::load.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

enum class BloadPalette {
  kNone,     // hasPalette and paletteFilePos keep their values: intended, no renderer of these modes reads them
  kStandard, // the standard colours
  kInFile,   // stored at paletteAddress
};

// What happens to a file that does not begin with the identifier of a plain one.
enum class BloadBody {
  kPlain,   // reported as not valid
  kIgnored, // ignored silently: intended, the mode's packed pictures have an extension of their own
  kPacked,  // may hold a packed body
};

// A kind of BLOAD file.
struct BloadSettings {
  int32_t minEnd; // bounds of the end address, as signed 16-bit numbers
  int32_t maxEnd;
  uint8_t bitsPerPixel;
  int16_t colourMode; // or kKept
  int32_t imageWidth;
  int32_t imageHeight;
  uint8_t colourCount;
  BloadPalette palette;
  int32_t paletteAddress; // in video memory
};

// Whether the open file begins with the identifier of a plain BLOAD file.
bool isPlainBload(const ViewerState &viewer);

// Checks the header of the open file, stores the settings, reads palette and body.
bool loadBload(ViewerState &viewer, const BloadSettings &settings, BloadBody body = BloadBody::kPlain);

bool loadScreen2(ViewerState &viewer); // with the standard colours
bool loadScreen4(ViewerState &viewer); // the same with a palette of its own
bool loadScreen5(ViewerState &viewer);
bool loadPackedScreen5(ViewerState &viewer); // .SR5: plain or packed
bool loadScreen6(ViewerState &viewer);
bool loadScreen7(ViewerState &viewer);
bool loadPackedScreen7(ViewerState &viewer); // .SR7: plain or packed
bool loadScreen8(ViewerState &viewer);
bool loadScreen10(ViewerState &viewer); // Screens 10 and 11 differ only in how BASIC draws on them
bool loadScreen12(ViewerState &viewer);
