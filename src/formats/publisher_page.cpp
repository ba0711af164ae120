#include "formats/publisher_page.h"

#include "pixels/publisher_depacker.h"
#include "state/labels.h"
#include "state/video_memory.h"

#include <algorithm>
#include <array>

//  offset  size  field
//       0   384  header; four letters are checked
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

// Leftmost pixel first: the low half of a byte is left of the high half. Intended, pages are printed so.
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

bool loadPublisherPage(ViewerState &viewer) {
  const bool valid = std::all_of(kSignature.begin(), kSignature.end(), [&viewer](const SignatureLetter &row) {
    return readByte(viewer.inputFile, row.position) == static_cast<uint8_t>(row.letter);
  });
  if (!valid) return reportNotValid(viewer);
  describePicture(viewer, {.bitsPerPixel = 1,
                           .colourCount = 2,
                           .hasPalette = kFalse,
                           .isPacked = kTrue,
                           .imageWidth = kWidth,
                           .imageHeight = kHeight});
  showPictureInfo(viewer);
  if (viewer.preferences.Check5 != kTrue) viewer.window.menuDoubleHeight.checked = true;
  clearVram(viewer);
  loadPackedData(viewer, kPagePos);
  depackPublisherPage(viewer.packedData, viewer.vram.written(kPublisherPageBytes + kPublisherOverrun));
  return true;
}

void renderPublisherPage(ViewerState &viewer) {
  const size_t bytes = std::min(kPublisherPageBytes, viewer.frameBits.size() / kBitOrder.size());
  auto target = viewer.frameBits.begin();
  for (size_t n = 0; n < bytes; ++n) {
    const BytePixels &pixels = kPixels[viewer.vram[n]];
    target = std::copy(pixels.begin(), pixels.end(), target);
  }
  std::fill(target, viewer.frameBits.end(), 0U);
}
