#include "encoders.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

constexpr int kEnd = 0, kNewRow = 255, kMark = 64; // control bytes

// Four colours with the two bits of a pixel apart or together, or sixteen colours.
enum class Variant { kSplitBits, kPairedBits, kSixteenColours };

// The head of a record: control byte, size of the tile. The width fills whole bytes.
Bytes recordHead(Variant variant, int control, int width, int height) {
  if (variant != Variant::kSixteenColours) return {byteOf(control), byteOf(width), byteOf(height)};
  Bytes head = {byteOf(control), 5};
  appendWords(head, {width / 2, width, height});
  return head;
}

Bytes tile(Variant variant, const IndexedPicture &picture) {
  const int control = variant == Variant::kSixteenColours ? kMark : picture.width / 4;
  Bytes record = recordHead(variant, control, picture.width, picture.height);
  append(record, variant == Variant::kSplitBits    ? packSplitBits(picture.pixels)
                 : variant == Variant::kPairedBits ? packBits(picture.pixels, 2)
                                                   : packBits(picture.pixels, 4));
  return record;
}

struct Row {
  const char *name;
  Variant variant;
  Scene scene;
  int width;
  std::vector<int> rowHeights;
  int tilesInARow;
  bool hasEnd;
};

// From the third row on each row is shown lower than the one before ends, and what is below the picture is lost.
const Row kRows[] = {
    {"COAST.SGX", Variant::kSplitBits, coast, 240, {180}, 1, true},
    {"WHEEL.SGX", Variant::kSplitBits, hueWheel, 320, {120, 132}, 2, false},
    {"PLASMA.SGX", Variant::kPairedBits, plasma, 240, {200}, 3, true},
    {"BEACH.SGX", Variant::kPairedBits, coast, 480, {100, 152}, 3, false},
    {"SUNSET.SGX", Variant::kSixteenColours, coast, 320, {200}, 2, true},
    {"HUES.SGX", Variant::kSixteenColours, hueWheel, 500, {200, 214}, 2, false},
    {"odd/three_rows.SGX", Variant::kSplitBits, plasma, 160, {40, 60, 90}, 2, true},
};

Bytes sgxFile(const Row &row) {
  Bytes file;
  // The variant is known by the first bytes: here a tile of 64 bytes a line and no size.
  if (row.variant == Variant::kPairedBits) append(file, recordHead(row.variant, kMark, 0, 0));
  Colours colours = kSymbosColours;
  if (row.variant != Variant::kSixteenColours) colours.resize(4);
  int height = 0, top = 0;
  for (const int lines : row.rowHeights) height += lines;
  const IndexedPicture picture = dithered(rendered(row.scene, row.width, height), colours);
  for (const int lines : row.rowHeights) {
    if (top > 0) append(file, recordHead(row.variant, kNewRow, 0, 0));
    const int width = row.width / row.tilesInARow;
    for (int left = 0; left < row.width; left += width) {
      append(file, tile(row.variant, cropped(picture, left, top, width, lines)));
    }
    top += lines;
  }
  if (row.hasEnd) append(file, recordHead(row.variant, kEnd, 0, 0));
  return file;
}

} // namespace

void addSymbosSamples(Samples &samples) {
  for (const Row &row : kRows) samples.push_back({row.name, sgxFile(row)});
}

} // namespace samples
