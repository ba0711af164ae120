#include "core/bitmap_export.h"

#include "core/buffers.h"
#include "core/file_kinds.h"
#include "core/text.h"
#include "screens/pixel_kernels.h"

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

// The information header of that many bytes, those behind the oldest fields zero.
void putHeader(std::span<uint8_t> header, int32_t width, int32_t height) {
  std::fill(header.begin(), header.end(), uint8_t{0});
  putNumber(header.subspan(0, 4), static_cast<uint32_t>(header.size()));
  putNumber(header.subspan(4, 4), static_cast<uint32_t>(width));
  putNumber(header.subspan(8, 4), static_cast<uint32_t>(height));
  putNumber(header.subspan(12, 2), 1);
  putNumber(header.subspan(14, 2), kBytesPerPixel * 8);
  putNumber(header.subspan(20, 4), static_cast<uint32_t>(bytesOfRows(width, height)));
}

// Both headers of a file.
void putFileHeaders(std::span<uint8_t> headers, int32_t width, int32_t height) {
  const auto fileHeader = headers.first(kBitmapFileHeaderBytes);
  std::fill(fileHeader.begin(), fileHeader.end(), uint8_t{0});
  putNumber(fileHeader.subspan(0, 2), 'B' | 'M' << 8);
  putNumber(fileHeader.subspan(2, 4), static_cast<uint32_t>(kRowsOffset + bytesOfRows(width, height)));
  putNumber(fileHeader.subspan(10, 4), kRowsOffset);
  putHeader(headers.subspan(kBitmapFileHeaderBytes), width, height);
}

// As many lines of `frameBits` as there is room for, the one above line `behind` first, then upwards.
void putRows(std::span<uint8_t> rows, std::span<const uint32_t> frameBits, int32_t width, int32_t behind) {
  const auto columns = static_cast<size_t>(width);
  const size_t rowBytes = bytesOfRows(width, 1);
  auto line = static_cast<size_t>(behind);
  for (size_t at = 0; at < rows.size(); at += rowBytes) {
    pixelKernels().bytesOfWords(frameBits.data() + --line * columns, columns, rows.data() + at);
    std::fill(rows.data() + at + columns * kBytesPerPixel, rows.data() + at + rowBytes, uint8_t{0});
  }
}

} // namespace

std::vector<uint8_t> encodeBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  std::vector<uint8_t> file;
  const size_t length = kRowsOffset + bytesOfRows(width, height);
  if (!provideRoom(file, length)) return {};
  file.resize(length);
  putFileHeaders(std::span(file).first(kRowsOffset), width, height);
  putRows(std::span(file).subspan(kRowsOffset), frameBits, width, height);
  return file;
}

std::string putBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height, const PutBytes &put) {
  constexpr size_t kPieceBytes = size_t{32} << 10;
  std::array<uint8_t, kRowsOffset> headers;
  putFileHeaders(headers, width, height);
  std::string failure = put(headers);

  const auto mostRows = static_cast<int32_t>(kPieceBytes / std::max<size_t>(1, bytesOfRows(width, 1)));
  const int32_t rows = std::min(height, std::max(1, mostRows));
  std::vector<uint8_t> piece(bytesOfRows(width, rows));
  for (int32_t behind = height; behind > 0 && failure.empty(); behind -= rows) {
    const auto bytes = std::span(piece).first(bytesOfRows(width, std::min(rows, behind)));
    putRows(bytes, frameBits, width, behind);
    failure = put(bytes);
  }
  return failure;
}

std::vector<uint8_t> encodeBitmapV5(std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  // Behind the fields of the older header: channel masks, colour space, end points, gamma, intent, profile.
  constexpr uint32_t kHeaderBytes = 124;
  constexpr size_t kColourSpaceOffset = 56;
  constexpr uint32_t kColourSpaceSrgb = 0x73524742; // 'sRGB'
  constexpr size_t kIntentOffset = 108;
  constexpr uint32_t kIntentGraphics = 2;

  std::vector<uint8_t> bitmap;
  const size_t length = kHeaderBytes + bytesOfRows(width, height);
  if (!provideRoom(bitmap, length)) return {};
  bitmap.resize(length);
  const auto header = std::span(bitmap).first(kHeaderBytes);
  putHeader(header, width, height);
  putNumber(header.subspan(kColourSpaceOffset, 4), kColourSpaceSrgb);
  putNumber(header.subspan(kIntentOffset, 4), kIntentGraphics);
  putRows(std::span(bitmap).subspan(kHeaderBytes), frameBits, width, height);
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
