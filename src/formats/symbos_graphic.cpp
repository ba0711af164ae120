#include "formats/symbos_graphic.h"

#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "state/palette.h"
#include "pixels/symbos_bits.h"

#include <algorithm>
#include <array>
#include <limits>

// A file is a list of records, each a header and a tile's pixels. A control of 0 ends the file, 255 starts a new row of
// tiles, another value is a tile. The variant shows in the first two bytes of the file, which belong to the first
// record:
//   0 to 63   4 colours   3-byte records  pixel bits in the order of another computer, sorted after loading
//   64 0      4 colours   3-byte records
//   64 5      16 colours  8-byte records
// 3 bytes: control and bytes per line in one, width in pixels, height in lines.
// 8 bytes: control, 1 byte not used, then words: bytes per line, width in pixels, height in lines (signed).

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

// A place that lies outside every picture is as good as any other such place.
int32_t heldIn32Bits(int64_t place) {
  return static_cast<int32_t>(
      std::clamp<int64_t>(place, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

struct SymbosSize {
  int64_t width = 0;
  int64_t height = 0;
};

// Goes through the records and calls `takeTile` with each tile's record, the position of its pixels and its place.
// The end of the file counts as an end record.
template <typename TakeTile>
SymbosSize walkRecords(const InputFile &file, const SymbosVariant &variant, TakeTile &&takeTile) {
  SymbosSize size;
  int64_t x = 0;
  int64_t y = 0;
  // No file that the machine can hold is longer than its memory; the bound keeps an endless list of rows from hanging.
  const int64_t end = std::min<int64_t>(inputFileLength(file), static_cast<int64_t>(2 * kVideoMemoryBytes));
  const auto headerBytes = static_cast<int64_t>(variant.headerBytes);
  for (int64_t position = 1; position + headerBytes - 1 <= end;) {
    const SymbosRecord record = readRecord(file, position, variant);
    position += headerBytes;
    if (x == 0) size.height += record.height; // before the control is looked at, so end records count too: intended
    if (record.control == kEndControl) break;
    if (record.control == kNewRowControl) {
      y += size.height; // all rows so far, not only the last: from the third row on tiles stand too low. Intended.
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

SymbosSize measure(const InputFile &file, const SymbosVariant &variant) {
  return walkRecords(file, variant, [](const SymbosRecord &, int64_t, int64_t, int64_t) {});
}

// Fills the tile table and `vram`; pixels for which `vram` has no room are dropped.
void readTiles(ViewerState &viewer, const SymbosVariant &variant) {
  int64_t tileCount = 0;
  size_t filled = 0;
  clearVram(viewer);
  walkRecords(viewer.inputFile, variant, [&](const SymbosRecord &record, int64_t position, int64_t x, int64_t y) {
    viewer.symbosTiles[static_cast<size_t>(tileCount) % viewer.symbosTiles.size()] = {
        .bytesPerLine = static_cast<uint8_t>(record.bytesPerLine),
        .width = static_cast<uint8_t>(record.width),
        .height = record.height,
        .x = heldIn32Bits(x),
        .y = heldIn32Bits(y)};
    ++tileCount;
    const int64_t tileBytes = std::max<int64_t>(0, int64_t{record.bytesPerLine} * record.height);
    const auto room = static_cast<int64_t>(viewer.vram.size() - filled);
    const auto taken = static_cast<size_t>(std::min(tileBytes, room));
    readBytes(viewer.inputFile, position, std::span(viewer.vram).subspan(filled, taken));
    filled += taken;
    viewer.vram.use(filled);
  });
  // Counted in a byte, less one.
  constexpr int64_t kCountRange = 256;
  viewer.symbosTileCount = tileCount == 0 ? 0 : static_cast<int32_t>((tileCount - 1) % kCountRange + 1);
}

void reportNotSymbos(ViewerState &viewer) { viewer.window.Label4 = "*** Error: Not a valid SGX file!"; }

} // namespace

void loadSymbosGraphic(ViewerState &viewer) {
  if (!openFileForReading(viewer)) return;
  const SymbosVariant *variant = findVariant(viewer.inputFile);
  if (variant == nullptr) {
    reportNotSymbos(viewer);
    return;
  }
  const SymbosSize size = measure(viewer.inputFile, *variant);
  if (!pictureFits(size.width, size.height)) {
    reportNotSymbos(viewer);
    return;
  }
  viewer.window.Label4 = "Loading...";
  readTiles(viewer, *variant);
  viewer.bitsPerPixel = variant->bitsPerPixel;
  viewer.colourCount = variant->colourCount;
  viewer.colourMode = 0;
  viewer.isPacked = kFalse;
  viewer.hasPalette = kTrue;
  setSymbosPalette(viewer);
  viewer.imageWidth = heldIn32Bits(size.width);
  viewer.imageHeight = heldIn32Bits(size.height);
  if (variant->foreignBitOrder) pairPictureBits(viewer.vram, viewer.imageWidth, viewer.imageHeight);
  showPictureInfo(viewer);
  renderAndShow(viewer);
}
