// Renderer of one byte a pixel: Screens 8 and 10 to 12, and the V9990's byte modes.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

// Values of `colourMode`.
inline constexpr uint8_t ColourModePalette = 0x00; // index into `palette`
inline constexpr uint8_t ColourModeGrb332 = 0x40;  // GGGRRRBB
inline constexpr uint8_t ColourModeYjk = 0x80;     // groups of four pixels that share J and K
inline constexpr uint8_t ColourModeYuv = 0xC0;     // the same with green and blue exchanged
inline constexpr uint8_t ColourModeYae = 0xFF;     // YJK, each pixel with an attribute: palette colour instead

// Draws imageWidth x imageHeight pixels from `vramPos` on, which ends behind the last byte used; lines follow one
// another without filling. In the group modes the last (imageWidth mod 4) pixels of a line have no bytes and are not
// drawn. Another colour mode, or a picture that `vram` does not hold, draws nothing.
void RenderBytePixels(ViewerState &viewer);

// Whether it writes every pixel of the frame.
bool bytePixelsFill(const ViewerState &viewer);
