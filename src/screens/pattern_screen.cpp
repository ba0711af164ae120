#include "screens/pattern_screen.h"

#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "core/palette.h"
#include "formats/vscreen_level.h"
#include "screens/bload_file.h"
#include "screens/pixel_kernels.h"

// Video memory, at the addresses that BASIC gives the tables:
//   0x0000  6144  pattern generator: three thirds of 256 patterns, 8 bytes each, bit 7 leftmost
//   0x1800   768  name table: a pattern number for each cell, 32 cells a row
//   0x1B80    32  palette of Screen 4 files
//   0x2000  6144  colour table: for each pattern line foreground (bits 7-4) and background (bits 3-0)

namespace {

constexpr size_t kNameTable = 0x1800;
constexpr int32_t kPaletteAddress = 0x1B80;
constexpr size_t kColourTable = 0x2000;
constexpr size_t kTablesEnd = kColourTable + 6144;

constexpr size_t kCells = 768;
constexpr size_t kCellsPerRow = 32;
constexpr size_t kCellSize = kPatternSide;
constexpr size_t kThirdMask = 0x300; // the bits of a cell number that tell its third of the screen
constexpr int32_t kWidth = 256;
constexpr int32_t kHeight = 192;

constexpr int32_t kEndLowest = signedAddress(0x37FF);
constexpr char kOwnPaletteMark = '4'; // last character of the Screen 4 extensions

} // namespace

void loadPatternScreen(ViewerState &viewer) {
  if (!openFileForReading(viewer)) return;
  const bool plain = readByte(viewer.inputFile, kIdentifierPos) == kPlainIdentifier;
  if (!plain && inputFileLength(viewer.inputFile) == kTileSetBytes) {
    loadTileSet(viewer);
    return;
  }
  if (!plain || !bloadAddressesValid(viewer, kEndLowest, kHighestAddress)) {
    reportNotValid(viewer);
    return;
  }
  viewer.bitsPerPixel = 1;
  viewer.colourMode = 0;
  viewer.colourCount = 16;
  viewer.imageWidth = kWidth;
  viewer.imageHeight = kHeight;
  viewer.isPacked = kFalse;
  viewer.spriteMode = kFalse;
  viewer.hasPalette = kTrue;
  if (viewer.fileExtension.back() == kOwnPaletteMark) {
    viewer.paletteFilePos = filePositionOf(kPaletteAddress);
    readFilePalette(viewer);
  } else {
    setDefaultPalette(viewer);
  }
  showPictureInfo(viewer);
  loadVram(viewer, kBodyPos);
  renderAndShow(viewer);
}

void drawCell(ViewerState &viewer, size_t patternAt, size_t coloursAt, size_t corner) {
  pixelKernels().pattern(viewer.vram.data() + patternAt, viewer.vram.data() + coloursAt, viewer.palette.data(),
                         viewer.frameBits.data() + corner, kWidth);
}

bool patternScreenFills(const ViewerState &viewer) {
  return viewer.imageWidth == kWidth && viewer.imageHeight == kHeight && viewer.vram.size() >= kTablesEnd &&
         viewer.frameBits.size() >= static_cast<size_t>(kWidth) * kHeight;
}

void renderPatternScreen(ViewerState &viewer) {
  if (!patternScreenFills(viewer)) return;
  for (size_t cell = 0; cell < kCells; ++cell) {
    const size_t pattern = viewer.vram[kNameTable + cell] + (cell & kThirdMask);
    const size_t corner = cell / kCellsPerRow * kCellSize * kWidth + cell % kCellsPerRow * kCellSize;
    drawCell(viewer, pattern * kCellSize, kColourTable + pattern * kCellSize, corner);
  }
}
