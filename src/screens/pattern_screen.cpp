#include "screens/pattern_screen.h"

#include "pixels/pixel_kernels.h"

// Video memory, at the addresses that BASIC gives the tables:
//   0x0000  6144  pattern generator: three thirds of 256 patterns, 8 bytes each, bit 7 leftmost
//   0x1800   768  name table: a pattern number for each cell, 32 cells a row
//   0x1B80    32  palette of Screen 4 files
//   0x2000  6144  colour table: for each pattern line foreground (bits 7-4) and background (bits 3-0)

namespace {

constexpr size_t kNameTable = 0x1800;
constexpr size_t kColourTable = 0x2000;
constexpr size_t kTablesEnd = kColourTable + 6144;

constexpr size_t kCells = 768;
constexpr size_t kCellSize = kPatternSide;
constexpr size_t kThirdMask = 0x300; // bits of a cell number: its third of the screen
constexpr int32_t kWidth = 256;
constexpr int32_t kHeight = 192;

} // namespace

void drawCellRow(ViewerState &viewer, size_t row, const std::array<size_t, kCellsPerRow> &patterns,
                 size_t colourTable) {
  const uint8_t *const vram = viewer.vram.data();
  std::array<PatternCell, kCellsPerRow> cells;
  for (size_t i = 0; i < cells.size(); ++i) {
    const size_t at = patterns[i] * kCellSize;
    cells[i] = {.bits = vram + at, .colours = vram + colourTable + at};
  }
  uint32_t *const target = viewer.frameBits.data() + row * kCellSize * kWidth;
  pixelKernels().cells(cells.data(), cells.size(), viewer.palette.data(), target, kWidth);
}

void renderPatternScreen(ViewerState &viewer) {
  if (viewer.frameWidth != kWidth || viewer.frameHeight != kHeight || viewer.vram.size() < kTablesEnd)
    return blacken(viewer);
  for (size_t row = 0; row < kCells / kCellsPerRow; ++row) {
    std::array<size_t, kCellsPerRow> patterns;
    for (size_t column = 0; column < kCellsPerRow; ++column) {
      const size_t cell = row * kCellsPerRow + column;
      patterns[column] = viewer.vram[kNameTable + cell] + (cell & kThirdMask);
    }
    drawCellRow(viewer, row, patterns, kColourTable);
  }
}
