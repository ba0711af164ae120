#include "formats/vscreen_level.h"

#include "screens/bload_loaders.h"
#include "screens/pattern_screen.h"
#include "state/companion_file.h"
#include "state/labels.h"
#include "state/palette.h"
#include "state/video_memory.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>

// Tile set:    palette (32 bytes), then what renderTileSet reads: 256 tiles of 8 pattern bytes, and from 2048 on 256
//              tiles of 8 colour bytes (high nibble foreground, low nibble background), a byte for each line
// Sprite set:  46 sprites of 64 bytes: two layers, each 16 bytes for its left and 16 for its right half
// Its colours: 46 sprites of 32 bytes: for each layer a colour for each line, in the low nibble

namespace {

constexpr int64_t kTileSetBytes = 4128;
constexpr int32_t kTileSetWidth = 256;
constexpr int32_t kTileSetHeight = 64;
constexpr int32_t kTilesPos = 33;
constexpr size_t kTiles = 256;
constexpr size_t kTileColours = 2048;

constexpr int32_t kSpriteSetWidth = 256;
constexpr int32_t kSpriteSetHeight = 48;
constexpr int64_t kSpriteSetBytes = 2944;
using SpriteColours = std::array<uint8_t, 1472>;
constexpr size_t kSpriteColours = 3072; // address of the colours in `vram`; the two cells before it stay empty
constexpr size_t kSpriteCells = 48;
constexpr size_t kSpriteSize = 16;
constexpr size_t kSpriteBytes = 64;
constexpr size_t kLayerBytes = 32;

constexpr BloadSettings kBorder = {.minEnd = 0x1400,
                                   .maxEnd = 0x1400,
                                   .bitsPerPixel = 4,
                                   .colourMode = kKept,
                                   .imageWidth = 256,
                                   .imageHeight = 40,
                                   .colourCount = 16,
                                   .palette = BloadPalette::kStandard,
                                   .paletteAddress = 0};

bool readSpriteColours(const ViewerState &viewer, SpriteColours &colours) {
  InputFile file;
  const bool whole = openCompanion(viewer, file) && inputFileLength(file) == std::ssize(colours) &&
                     readBytes(file, 1, colours) == colours.size();
  closeInputFile(file);
  return whole;
}

} // namespace

bool holdsTileSet(const ViewerState &viewer) {
  return inputFileLength(viewer.inputFile) == kTileSetBytes && !isPlainBload(viewer);
}

bool loadTileSet(ViewerState &viewer) {
  describePicture(viewer, {.bitsPerPixel = 1,
                           .colourCount = 16,
                           .hasPalette = kTrue,
                           .spriteMode = kTrue,
                           .imageWidth = kTileSetWidth,
                           .imageHeight = kTileSetHeight});
  viewer.paletteFilePos = 1;
  readFilePalette(viewer);
  showPictureInfo(viewer);
  loadVram(viewer, kTilesPos);
  return true;
}

bool loadBorder(ViewerState &viewer) { return loadBload(viewer, kBorder); }

bool loadSpriteSet(ViewerState &viewer) {
  if (inputFileLength(viewer.inputFile) != kSpriteSetBytes) return reportNotValid(viewer);
  SpriteColours colours{};
  if (!readSpriteColours(viewer, colours))
    return reportError(viewer, "*** Error: Could not find corresponding .TCS file!");
  describePicture(viewer, {.bitsPerPixel = 3,
                           .colourMode = kKept,
                           .colourCount = 16,
                           .hasPalette = kTrue,
                           .imageWidth = kSpriteSetWidth,
                           .imageHeight = kSpriteSetHeight});
  setDefaultPalette(viewer);
  showPictureInfo(viewer);
  loadVram(viewer, 1);
  const auto target = viewer.vram.written(kSpriteColours + colours.size()).subspan(kSpriteColours);
  std::copy(colours.begin(), colours.end(), target.begin());
  return true;
}

void renderTileSet(ViewerState &viewer) {
  if (viewer.frameWidth != kTileSetWidth || viewer.frameHeight != kTileSetHeight) return blacken(viewer);
  for (size_t row = 0; row < kTiles / kCellsPerRow; ++row) {
    std::array<size_t, kCellsPerRow> tiles;
    std::iota(tiles.begin(), tiles.end(), row * kCellsPerRow);
    drawCellRow(viewer, row, tiles, kTileColours);
  }
}

void renderSpriteSet(ViewerState &viewer) {
  if (viewer.frameWidth != kSpriteSetWidth || viewer.frameHeight != kSpriteSetHeight) return blacken(viewer);
  const uint8_t *vram = viewer.vram.data();
  for (size_t cell = 0; cell < kSpriteCells; ++cell) {
    const size_t column = cell * kSpriteSize % kSpriteSetWidth;
    const size_t top = cell * kSpriteSize / kSpriteSetWidth * kSpriteSize;
    for (size_t line = 0; line < kSpriteSize; ++line) {
      uint32_t *target = viewer.frameBits.data() + (top + line) * kSpriteSetWidth + column;
      const uint8_t *bits = vram + cell * kSpriteBytes + line;
      const uint8_t *colours = vram + kSpriteColours + cell * kLayerBytes + line;
      const int first = bits[0] << 8 | bits[16];
      const int second = bits[32] << 8 | bits[48];
      for (size_t x = 0; x < kSpriteSize; ++x) {
        const size_t shift = kSpriteSize - 1 - x;
        const int firstColour = (first >> shift & 1) != 0 ? colours[0] & 0x0F : 0;
        const int secondColour = (second >> shift & 1) != 0 ? colours[16] & 0x0F : 0;
        // The V9938 ORs the colour numbers of the two layers.
        target[x] = viewer.palette[static_cast<size_t>(firstColour | secondColour)];
      }
    }
  }
}
