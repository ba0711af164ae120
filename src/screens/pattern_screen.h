// Renderer of Screens 2 and 4: 768 cells of 8 x 8 pixels, two colours per pattern line.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstddef>

inline constexpr size_t kCellsPerRow = 32;

// Draws a row of cells across a frame 256 pixels wide. Cell i has pattern p = `patterns[i]`: 8 bytes of `vram` at 8 *
// p, bit 7 leftmost, and 8 bytes at `colourTable` + 8 * p, foreground in bits 7-4, background in bits 3-0.
void drawCellRow(ViewerState &viewer, size_t row, const std::array<size_t, kCellsPerRow> &patterns, size_t colourTable);

// Draws the 32 x 24 cells of `vram` through `palette` into `frameBits`. Colour 0 is an ordinary colour. The frame is
// black unless it has 256 x 192 pixels.
void renderPatternScreen(ViewerState &viewer);
