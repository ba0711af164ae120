#include "formats/symbos_graphic.h"

#include "pixels/pixel_kernels.h"
#include "pixels/symbos_bits.h"
#include "state/labels.h"
#include "state/palette.h"
#include "state/video_memory.h"

#include <algorithm>
#include <array>
#include <limits>

// A file is a list of records, each a header and a tile's pixels. Control 0 ends the file, 255 starts a new row of
// tiles, any other value is a tile. The first two bytes of the first record are the variant:
//   0 to 63   4 colours   3-byte headers  pixel bits in the order of another computer, reordered after loading
//   64 0      4 colours   3-byte headers
//   64 5      16 colours  8-byte headers
// 3 bytes: control = bytes per line, width in pixels, height in lines.
// 8 bytes: control, 1 unused, then words: bytes per line, width in pixels, height in lines (signed).

namespace {

constexpr uint8_t kEndControl = 0;
constexpr uint8_t kNewRowControl = 255;

struct SymbosVariant {
  size_t headerBytes;
  uint8_t bitsPerPixel;
  uint8_t colourCount;
  bool foreignBitOrder;
};

constexpr SymbosVariant kForeignFourColours = {3, 2, 4, true};
constexpr SymbosVariant kFourColours = {3, 2, 4, false};
constexpr SymbosVariant kSixteenColours = {8, 4, 16, false};

struct SymbosRecord {
  uint8_t control;
  uint16_t bytesPerLine;
  uint16_t width;
  int32_t height;
};

// The variant of the open file, or nullptr.
const SymbosVariant *findVariant(const InputFile &file) {
  constexpr uint8_t kMark = 64;
  const uint8_t first = readByte(file, 1);
  const uint8_t second = readByte(file, 2);
  if (first < kMark) return &kForeignFourColours;
  if (first != kMark) return nullptr;
  if (second == 0) return &kFourColours;
  return second == 5 ? &kSixteenColours : nullptr;
}

SymbosRecord readRecord(const InputFile &file, int64_t position, const SymbosVariant &variant) {
  std::array<uint8_t, 8> bytes{};
  readBytes(file, position, std::span(bytes).first(variant.headerBytes));
  if (variant.headerBytes < bytes.size()) {
    return {.control = bytes[0], .bytesPerLine = bytes[0], .width = bytes[1], .height = bytes[2]};
  }
  const auto word = [&bytes](size_t at) { return static_cast<uint16_t>(bytes[at] | bytes[at + 1] << 8); };
  return {.control = bytes[0], .bytesPerLine = word(2), .width = word(4), .height = static_cast<int16_t>(word(6))};
}

// Saturates: beyond 32 bits every position is off the picture.
int32_t clampTo32Bits(int64_t place) {
  return static_cast<int32_t>(
      std::clamp<int64_t>(place, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

struct SymbosSize {
  int64_t width = 0;
  int64_t height = 0;
};

// Calls `takeTile` with each tile's record, the position of its pixels, x and y. Returns the size of the graphic.
// The end of the file counts as an end record.
template <typename TakeTile>
SymbosSize walkRecords(const InputFile &file, const SymbosVariant &variant, TakeTile &&takeTile) {
  SymbosSize size;
  int64_t x = 0;
  int64_t y = 0;
  // Bounds the loop: a huge file of empty rows would hang the viewer, and real ones are shorter than the memory.
  const int64_t end = std::min<int64_t>(inputFileLength(file), static_cast<int64_t>(2 * kVideoMemoryBytes));
  const auto headerBytes = static_cast<int64_t>(variant.headerBytes);
  for (int64_t position = 1; position + headerBytes - 1 <= end;) {
    const SymbosRecord record = readRecord(file, position, variant);
    position += headerBytes;
    if (x == 0) size.height += record.height; // an end record counts too: intended, existing files rely on it
    if (record.control == kEndControl) break;
    if (record.control == kNewRowControl) {
      // The height of all rows so far, so tiles from the third row on lie too low: intended, existing graphics of more
      // than two rows are laid out for it.
      y += size.height;
      x = 0;
      size.width = 0;
      continue;
    }
    takeTile(record, position, x, y);
    position += std::max<int64_t>(0, int64_t{record.bytesPerLine} * record.height);
    x += record.width;
    size.width += record.width;
  }
  return size;
}

// Fills the tile table and `vram`; pixels beyond the end of `vram` are dropped.
void readTiles(ViewerState &viewer, const SymbosVariant &variant) {
  int64_t tileCount = 0;
  size_t filled = 0;
  clearVram(viewer);
  walkRecords(viewer.inputFile, variant, [&](const SymbosRecord &record, int64_t position, int64_t x, int64_t y) {
    viewer.symbosTiles[static_cast<size_t>(tileCount) % viewer.symbosTiles.size()] = {
        .bytesPerLine = static_cast<uint8_t>(record.bytesPerLine),
        .height = record.height,
        .x = clampTo32Bits(x),
        .y = clampTo32Bits(y)};
    ++tileCount;
    const int64_t tileBytes = std::max<int64_t>(0, int64_t{record.bytesPerLine} * record.height);
    const auto room = static_cast<int64_t>(viewer.vram.size() - filled);
    const auto taken = static_cast<size_t>(std::min(tileBytes, room));
    readBytes(viewer.inputFile, position, viewer.vram.written(filled + taken).subspan(filled));
    filled += taken;
  });
  // The count minus one is a byte.
  constexpr int64_t kCountRange = 256;
  viewer.symbosTileCount = tileCount == 0 ? 0 : static_cast<int32_t>((tileCount - 1) % kCountRange + 1);
}

bool reportNotSymbos(ViewerState &viewer) { return reportError(viewer, "*** Error: Not a valid SGX file!"); }

template <size_t kPixels> void drawTiles(ViewerState &viewer) {
  const auto frameSize = static_cast<int64_t>(viewer.frameBits.size());
  auto source = static_cast<size_t>(viewer.vramPos);
  for (int32_t i = 0; i < viewer.symbosTileCount; ++i) {
    const SymbosTile &tile = viewer.symbosTiles[static_cast<size_t>(i)];
    for (int64_t row = 0; row < tile.height; ++row, source += tile.bytesPerLine) {
      if (tile.bytesPerLine > viewer.vram.size() - source) return;
      int64_t target = (tile.y + row) * viewer.imageWidth + tile.x;
      for (size_t pixel = 0; pixel < tile.bytesPerLine * kPixels; ++pixel, ++target) {
        const size_t entry = entryOf<kPixels>(viewer.vram[source + pixel / kPixels], pixel % kPixels);
        if (target >= 0 && target < frameSize) viewer.frameBits[static_cast<size_t>(target)] = viewer.palette[entry];
      }
    }
  }
  viewer.vramPos = static_cast<int32_t>(source);
}

} // namespace

bool loadSymbosGraphic(ViewerState &viewer) {
  const SymbosVariant *variant = findVariant(viewer.inputFile);
  if (variant == nullptr) return reportNotSymbos(viewer);
  const auto onlyMeasure = [](const SymbosRecord &, int64_t, int64_t, int64_t) {};
  const SymbosSize size = walkRecords(viewer.inputFile, *variant, onlyMeasure);
  if (!pictureFits(size.width, size.height)) return reportNotSymbos(viewer);
  viewer.window.Label4 = "Loading...";
  readTiles(viewer, *variant);
  describePicture(viewer, {.bitsPerPixel = variant->bitsPerPixel,
                           .colourCount = variant->colourCount,
                           .hasPalette = kTrue,
                           .imageWidth = clampTo32Bits(size.width),
                           .imageHeight = clampTo32Bits(size.height)});
  std::copy(kSymbosPalette.begin(), kSymbosPalette.end(), viewer.palette.begin());
  if (variant->foreignBitOrder) {
    pairPictureBits(viewer.vram.written(viewer.vram.size()), viewer.imageWidth, viewer.imageHeight);
  }
  showPictureInfo(viewer);
  return true;
}

void renderSymbosTiles(ViewerState &viewer) {
  blacken(viewer);
  if (viewer.imageWidth < 0 || viewer.imageHeight < 0) return;
  viewer.bitsPerPixel == 2 ? drawTiles<4>(viewer) : drawTiles<2>(viewer);
}
