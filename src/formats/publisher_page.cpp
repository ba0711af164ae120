#include "formats/publisher_page.h"

#include "core/dispatch.h"
#include "core/load_pipeline.h"

#include <algorithm>
#include <array>

//  offset  size  field
//       0   384  header, of which four letters are looked at
//     384        packed page: 704 lines of 64 bytes

namespace {

struct SignatureLetter {
  int32_t position; // 1-based
  char letter;
};

constexpr std::array<SignatureLetter, 4> kSignature{{{9, 'P'}, {17, 'R'}, {19, 'S'}, {24, 'N'}}};
constexpr int32_t kPagePos = 385;

constexpr int32_t kWidth = 512;
constexpr int32_t kHeight = 704;
constexpr size_t kPageBytes = size_t{kWidth} / 8 * kHeight;

// One byte before the page is full: a run that ends there leaves the last byte unwritten. Intended.
constexpr size_t kDepackedBytes = kPageBytes - 1;

// Leftmost pixel first: the low half of a byte stands left of the high half. Intended.
constexpr std::array<int, 8> kBitOrder = {3, 2, 1, 0, 7, 6, 5, 4};

constexpr uint32_t kInk = 0x000000;
constexpr uint32_t kPaper = 0xFFFFFF;

// The pixels of a byte.
using BytePixels = std::array<uint32_t, kBitOrder.size()>;
constexpr std::array<BytePixels, 256> kPixels = []() {
  std::array<BytePixels, 256> table{};
  for (size_t byte = 0; byte < table.size(); ++byte) {
    for (size_t x = 0; x < kBitOrder.size(); ++x) table[byte][x] = (byte >> kBitOrder[x] & 1) != 0 ? kInk : kPaper;
  }
  return table;
}();

} // namespace

void loadPublisherPage(ViewerState &viewer) {
  if (!openFileForReading(viewer)) return;
  const bool valid = std::all_of(kSignature.begin(), kSignature.end(), [&viewer](const SignatureLetter &row) {
    return readByte(viewer.inputFile, row.position) == static_cast<uint8_t>(row.letter);
  });
  if (!valid) {
    reportNotValid(viewer);
    return;
  }
  viewer.bitsPerPixel = 1;
  viewer.colourMode = 0;
  viewer.colourCount = 2;
  viewer.isPacked = kTrue;
  viewer.hasPalette = kFalse;
  viewer.imageWidth = kWidth;
  viewer.imageHeight = kHeight;
  showPictureInfo(viewer);
  if (viewer.preferences.Check5 != kTrue) viewer.window.menuDoubleHeight.checked = true;
  clearVram(viewer);
  loadPackedData(viewer, kPagePos);
  viewer.vram.use(depackPublisherPage(viewer.packedData, viewer.vram));
  renderAndShow(viewer);
}

// The code: 0 to 127 stands before one byte more of literals than it says, 128 to 255 before a byte that is repeated
// once more than its low seven bits say.
size_t depackPublisherPage(std::span<const uint8_t> packed, std::span<uint8_t> unpacked) {
  size_t source = 0;
  size_t written = 0;
  while (written < kDepackedBytes && source < packed.size()) {
    const uint8_t control = packed[source++];
    const bool repeats = (control & 0x80) != 0;
    size_t count = std::min<size_t>((control & 0x7F) + 1U, unpacked.size() - written);
    if (!repeats) count = std::min(count, packed.size() - source);
    if (count == 0 || source == packed.size()) return written;
    for (size_t i = 0; i < count; ++i) unpacked[written++] = repeats ? packed[source] : packed[source + i];
    source += repeats ? 1 : count;
  }
  return written;
}

void renderPublisherPage(ViewerState &viewer) {
  if (viewer.vram.size() < kPageBytes) return;
  const size_t bytes = std::min(kPageBytes, viewer.frameBits.size() / kBitOrder.size());
  uint32_t *target = viewer.frameBits.data();
  for (size_t n = 0; n < bytes; ++n) {
    const BytePixels &pixels = kPixels[viewer.vram[n]];
    target = std::copy(pixels.begin(), pixels.end(), target);
  }
}
