#include "core/bitmap_export.h"

#include "base/buffers.h"
#include "core/file_kinds.h"
#include "base/text.h"
#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <array>

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

size_t bytesOfRows(int32_t width, int32_t rows) {
  return static_cast<size_t>(RowBytes24(width)) * static_cast<size_t>(rows);
}

// The information header of that many bytes, those behind the oldest fields left as they are: zero.
void putHeader(std::span<uint8_t> header, int32_t width, int32_t height) {
  putNumber(header.subspan(0, 4), static_cast<uint32_t>(header.size()));
  putNumber(header.subspan(4, 4), static_cast<uint32_t>(width));
  putNumber(header.subspan(8, 4), static_cast<uint32_t>(height));
  putNumber(header.subspan(12, 2), 1);
  putNumber(header.subspan(14, 2), kBytesPerPixel * 8);
  putNumber(header.subspan(20, 4), static_cast<uint32_t>(bytesOfRows(width, height)));
}

std::array<uint8_t, kRowsOffset> fileHeaders(int32_t width, int32_t height) {
  std::array<uint8_t, kRowsOffset> bytes{};
  const std::span<uint8_t> headers(bytes);
  putNumber(headers.subspan(0, 2), 'B' | 'M' << 8);
  putNumber(headers.subspan(2, 4), static_cast<uint32_t>(kRowsOffset + bytesOfRows(width, height)));
  putNumber(headers.subspan(10, 4), kRowsOffset);
  putHeader(headers.subspan(kBitmapFileHeaderBytes), width, height);
  return bytes;
}

// The rows of a bitmap in pieces, so that a row may be longer than one. Returns what `put` says.
std::string putRows(std::span<const uint32_t> frameBits, int32_t width, int32_t height, const PutBytes &put) {
  constexpr size_t kPieceBytes = size_t{32} << 10;
  constexpr size_t kMostFill = 3;
  constexpr size_t kMostPixels = (kPieceBytes - kMostFill) / kBytesPerPixel;
  const auto columns = static_cast<size_t>(width);
  const size_t fill = bytesOfRows(width, 1) - columns * kBytesPerPixel;
  std::vector<uint8_t> piece(std::min(kPieceBytes, bytesOfRows(width, height)));
  size_t used = 0;
  for (auto line = static_cast<size_t>(height); line-- > 0;) {
    for (size_t column = 0; column < columns;) {
      const size_t pixels = std::min(columns - column, kMostPixels);
      if (piece.size() - used < pixels * kBytesPerPixel + fill) {
        if (std::string failure = put(std::span(piece).first(used)); !failure.empty()) return failure;
        used = 0;
      }
      pixelKernels().bytesOfWords(frameBits.data() + line * columns + column, pixels, piece.data() + used);
      used += pixels * kBytesPerPixel;
      column += pixels;
    }
    std::fill_n(piece.begin() + static_cast<std::ptrdiff_t>(used), fill, uint8_t{0});
    used += fill;
  }
  return used == 0 ? "" : put(std::span(piece).first(used));
}

// All of it in memory: `headers` and the rows. Empty when memory is lacking.
std::vector<uint8_t> withRows(std::span<const uint8_t> headers, std::span<const uint32_t> frameBits, int32_t width,
                              int32_t height) {
  std::vector<uint8_t> bitmap;
  if (!provideRoom(bitmap, headers.size() + bytesOfRows(width, height))) return {};
  bitmap.assign(headers.begin(), headers.end());
  putRows(frameBits, width, height, [&bitmap](std::span<const uint8_t> bytes) {
    bitmap.insert(bitmap.end(), bytes.begin(), bytes.end());
    return std::string();
  });
  return bitmap;
}

} // namespace

std::vector<uint8_t> encodeBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  return withRows(fileHeaders(width, height), frameBits, width, height);
}

std::string putBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height, const PutBytes &put) {
  const std::string failure = put(fileHeaders(width, height));
  return failure.empty() ? putRows(frameBits, width, height, put) : failure;
}

std::vector<uint8_t> encodeBitmapV5(std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  // Behind the fields of the older header: channel masks, colour space, end points, gamma, intent, profile.
  constexpr uint32_t kHeaderBytes = 124;
  constexpr size_t kColourSpaceOffset = 56;
  constexpr uint32_t kColourSpaceSrgb = 0x73524742; // 'sRGB'
  constexpr size_t kIntentOffset = 108;
  constexpr uint32_t kIntentGraphics = 2;

  std::array<uint8_t, kHeaderBytes> bytes{};
  const std::span<uint8_t> header(bytes);
  putHeader(header, width, height);
  putNumber(header.subspan(kColourSpaceOffset, 4), kColourSpaceSrgb);
  putNumber(header.subspan(kIntentOffset, 4), kIntentGraphics);
  return withRows(header, frameBits, width, height);
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
