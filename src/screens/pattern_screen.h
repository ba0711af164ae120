// Screens 2 and 4: 768 cells of 8 x 8 pixels, every pattern line with two colours.
#pragma once

#include "core/viewer_state.h"

// Loads a BLOAD file of Screen 2 (standard colours) or Screen 4 (own palette).
void loadPatternScreen(ViewerState &viewer);

// Draws a cell of 8 x 8 pixels with its top left pixel at `corner` of a frame 256 pixels wide. `patternAt` and
// `coloursAt` are addresses in `vram` of 8 bytes each: pattern lines, bit 7 leftmost, and for each line foreground
// (bits 7-4) and background (bits 3-0).
void drawCell(ViewerState &viewer, size_t patternAt, size_t coloursAt, size_t corner);

// Draws the 32 x 24 cells of `vram` through `palette` into `frameBits`, 256 x 192 pixels. Colour 0 is a colour like
// any other. Does nothing where `frameBits` is not that wide and high.
void renderPatternScreen(ViewerState &viewer);

// Whether it writes every pixel of the frame.
bool patternScreenFills(const ViewerState &viewer);
