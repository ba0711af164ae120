// Screens 2 and 4: 768 cells of 8 x 8 pixels, every pattern line with two colours.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstddef>

// Loads a BLOAD file of Screen 2 (standard colours) or Screen 4 (own palette).
void loadPatternScreen(ViewerState &viewer);

inline constexpr size_t kCellsPerRow = 32;

// Draws a row of cells across a frame 256 pixels wide. Cell i has pattern `patterns[i]`: 8 bytes from 8 times that
// number on in `vram`, bit 7 leftmost, and as far behind `colourTable` for each line foreground (bits 7-4) and
// background (bits 3-0).
void drawCellRow(ViewerState &viewer, size_t row, const std::array<size_t, kCellsPerRow> &patterns, size_t colourTable);

// Draws the 32 x 24 cells of `vram` through `palette` into `frameBits`, 256 x 192 pixels. Colour 0 is a colour like
// any other. Does nothing where `frameBits` is not that wide and high.
void renderPatternScreen(ViewerState &viewer);

// Whether it writes every pixel of the frame.
bool patternScreenFills(const ViewerState &viewer);
