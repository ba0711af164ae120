#include "core/bitmap_export.h"

#include "core/buffers.h"
#include "core/file_kinds.h"
#include "core/text.h"
#include "screens/pixel_kernels.h"

#include <algorithm>
#include <utility>

namespace {

// A bitmap file, all words little-endian:
//   0  2  "BM"
//   2  4  length of the file
//   6  4  0
//  10  4  offset of the rows
//  14  4  40, length of the information header
//  18  4  width, pixels
//  22  4  height, lines; positive: bottom row first
//  26  2  1 plane
//  28  2  bits per pixel
//  30  4  0, uncompressed
//  34  4  length of the rows
//  38  8  pixels per metre, left open
//  46  8  colours, left open
//  54     rows of blue, green, red bytes, each row filled up to a multiple of 4 bytes
constexpr uint32_t kInformationHeaderBytes = 40;
constexpr uint32_t kRowsOffset = kBitmapFileHeaderBytes + kInformationHeaderBytes;
constexpr uint32_t kBytesPerPixel = 3;

constexpr const char *kNoMemory = "There is not enough memory.";

void putNumber(std::span<uint8_t> bytes, uint32_t number) {
  for (uint8_t &byte : bytes) {
    byte = static_cast<uint8_t>(number);
    number >>= 8;
  }
}

// `before` bytes of zero, then an information header of that length, then the rows. Empty when memory is lacking.
std::vector<uint8_t> encodeBehind(size_t before, uint32_t headerBytes, std::span<const uint32_t> frameBits,
                                  int32_t width, int32_t height, std::vector<uint8_t> file) {
  const auto columns = static_cast<size_t>(width);
  const auto lines = static_cast<size_t>(height);
  const auto rowBytes = static_cast<size_t>(RowBytes24(width));
  if (!provideRoom(file, before + headerBytes + rowBytes * lines)) return {};
  file.resize(before + headerBytes + rowBytes * lines);

  std::fill_n(file.begin(), before + headerBytes, uint8_t{0});
  const auto header = std::span(file).subspan(before);
  putNumber(header.subspan(0, 4), headerBytes);
  putNumber(header.subspan(4, 4), static_cast<uint32_t>(width));
  putNumber(header.subspan(8, 4), static_cast<uint32_t>(height));
  putNumber(header.subspan(12, 2), 1);
  putNumber(header.subspan(14, 2), kBytesPerPixel * 8);
  putNumber(header.subspan(20, 4), static_cast<uint32_t>(rowBytes * lines));

  for (size_t y = 0; y < lines; ++y) {
    const uint32_t *source = frameBits.data() + (lines - 1 - y) * columns;
    uint8_t *target = header.data() + headerBytes + y * rowBytes;
    pixelKernels().bytesOfWords(source, columns, target);
    std::fill(target + columns * kBytesPerPixel, header.data() + headerBytes + (y + 1) * rowBytes, uint8_t{0});
  }
  return file;
}

} // namespace

std::vector<uint8_t> encodeBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height,
                                  std::vector<uint8_t> file) {
  file = encodeBehind(kBitmapFileHeaderBytes, kInformationHeaderBytes, frameBits, width, height, std::move(file));
  if (file.empty()) return file;
  const std::span<uint8_t> header(file);
  putNumber(header.subspan(0, 2), 'B' | 'M' << 8);
  putNumber(header.subspan(2, 4), static_cast<uint32_t>(file.size()));
  putNumber(header.subspan(10, 4), kRowsOffset);
  return file;
}

std::vector<uint8_t> encodeBitmapV5(std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  // Behind the fields of the older header: channel masks, colour space, end points, gamma, intent, profile.
  constexpr uint32_t kHeaderBytes = 124;
  constexpr size_t kColourSpaceOffset = 56;
  constexpr uint32_t kColourSpaceSrgb = 0x73524742; // 'sRGB'
  constexpr size_t kIntentOffset = 108;
  constexpr uint32_t kIntentGraphics = 2;

  auto bitmap = encodeBehind(0, kHeaderBytes, frameBits, width, height, {});
  if (bitmap.empty()) return bitmap;
  const std::span<uint8_t> header(bitmap);
  putNumber(header.subspan(kColourSpaceOffset, 4), kColourSpaceSrgb);
  putNumber(header.subspan(kIntentOffset, 4), kIntentGraphics);
  return bitmap;
}

std::string bitmapPath(const ViewerState &viewer) {
  constexpr size_t kFrameDigits = 4;

  const std::string &path = viewer.picturePath;
  if (!videoOpen(viewer)) return withLastLetters(path, "bmp");

  std::string number = std::to_string(viewer.window.HScroll1.value);
  number.insert(0, kFrameDigits - std::min(number.size(), kFrameDigits), '0');
  return path.substr(0, path.size() - std::min(path.size(), kExtensionLength)) + " - " + number + ".bmp";
}

void menuSaveBMP_Click(ViewerState &viewer) {
  const auto file = encodeBitmap(viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
  const std::string path = bitmapPath(viewer);
  const std::string failure = file.empty() ? kNoMemory : replaceFile(*viewer.platform.files, path, file);
  if (failure.empty()) return;
  viewer.platform.showMessage(viewer.platform.context, "Korilan", "Could not save " + path + "\n\n" + failure,
                              MessageIcon::kWarning);
}
