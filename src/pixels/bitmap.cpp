#include "pixels/bitmap.h"

#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <array>

namespace {

// A bitmap file, words little-endian; the clipboard's form begins at offset 14:
//   0  2  "BM"
//   2  4  length of the file
//   6  4  0
//  10  4  offset of the rows
//  14  4  40, length of the information header; 124 for version 5
//  18  4  width, pixels
//  22  4  height, lines; positive: bottom row first
//  26  2  1 plane
//  28  2  bits per pixel
//  30  4  0, uncompressed
//  34  4  length of the rows
//  38  8  pixels per metre, 0: unknown
//  46  8  palette colours, 0: none
//  54     rows of blue, green, red bytes, each row padded to a multiple of 4 bytes
// Version 5 adds channel masks, colour space (offset 70), end points, gamma, intent (offset 122), profile.
constexpr size_t kFileHeaderBytes = 14;
constexpr size_t kInformationBytes = 40;
constexpr size_t kInformationBytesV5 = 124;
constexpr size_t kMaxHeaderBytes = kFileHeaderBytes + kInformationBytesV5;
constexpr size_t kColourSpaceOffset = 70;
constexpr uint32_t kColourSpaceSrgb = 0x73524742; // 'sRGB'
constexpr size_t kIntentOffset = 122;
constexpr uint32_t kIntentGraphics = 2;
constexpr size_t kBytesPerPixel = 3;

size_t rowBytes(const PixelView &picture) { return static_cast<size_t>(RowBytes24(picture.width)); }

size_t informationBytes(BitmapHeader header) {
  return header == BitmapHeader::kClipboardV5 ? kInformationBytesV5 : kInformationBytes;
}

// File header and information header.
std::array<uint8_t, kMaxHeaderBytes> headerBytes(const PixelView &picture, BitmapHeader header) {
  std::array<uint8_t, kMaxHeaderBytes> bytes{};
  const auto put = [&bytes](size_t offset, size_t count, size_t number) {
    for (size_t i = 0; i < count; ++i) bytes[offset + i] = static_cast<uint8_t>(number >> 8 * i);
  };
  const size_t rows = rowBytes(picture) * static_cast<size_t>(picture.height);
  const size_t rowsOffset = kFileHeaderBytes + informationBytes(header);
  put(0, 2, 'B' | 'M' << 8);
  put(2, 4, rowsOffset + rows);
  put(10, 4, rowsOffset);
  put(14, 4, informationBytes(header));
  put(18, 4, static_cast<uint32_t>(picture.width));
  put(22, 4, static_cast<uint32_t>(picture.height));
  put(26, 2, 1);
  put(28, 2, kBytesPerPixel * 8);
  put(34, 4, rows);
  if (header != BitmapHeader::kClipboardV5) return bytes;
  put(kColourSpaceOffset, 4, kColourSpaceSrgb);
  put(kIntentOffset, 4, kIntentGraphics);
  return bytes;
}

// Puts the rows in chunks; a row may be longer than a chunk.
std::string putRows(const PixelView &picture, const PutBytes &put) {
  constexpr size_t kChunkBytes = size_t{32} << 10;
  constexpr size_t kMaxPadding = 3;
  constexpr size_t kMaxPixels = (kChunkBytes - kMaxPadding) / kBytesPerPixel;
  const auto columns = static_cast<size_t>(picture.width);
  const size_t padding = rowBytes(picture) - columns * kBytesPerPixel;
  std::array<uint8_t, kChunkBytes> chunk;
  size_t used = 0;
  for (auto line = static_cast<size_t>(picture.height); line-- > 0;) {
    for (size_t column = 0; column < columns;) {
      const size_t pixels = std::min(columns - column, kMaxPixels);
      if (chunk.size() - used < pixels * kBytesPerPixel + padding) {
        if (std::string failure = put(std::span(chunk).first(used)); !failure.empty()) return failure;
        used = 0;
      }
      pixelKernels().bgrBytes(picture.words.data() + line * columns + column, pixels, chunk.data() + used);
      used += pixels * kBytesPerPixel;
      column += pixels;
    }
    std::fill_n(chunk.begin() + static_cast<std::ptrdiff_t>(used), padding, uint8_t{0});
    used += padding;
  }
  return used == 0 ? "" : put(std::span(chunk).first(used));
}

} // namespace

size_t bitmapBytes(const PixelView &picture, BitmapHeader header) {
  const size_t fileHeader = header == BitmapHeader::kFile ? kFileHeaderBytes : 0;
  return fileHeader + informationBytes(header) + rowBytes(picture) * static_cast<size_t>(picture.height);
}

std::string putBitmap(const PixelView &picture, BitmapHeader header, const PutBytes &put) {
  const auto bytes = headerBytes(picture, header);
  const std::span<const uint8_t> whole = std::span(bytes).first(kFileHeaderBytes + informationBytes(header));
  const std::string failure = put(header == BitmapHeader::kFile ? whole : whole.subspan(kFileHeaderBytes));
  return failure.empty() ? putRows(picture, put) : failure;
}
