#include "pixels/png.h"

#include "pixels/deflate.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace {

constexpr std::array<uint8_t, 8> kSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr uint8_t kTrueColour = 2;
constexpr uint8_t kIndexed = 3;

// Remainders of a byte that 0 to 7 bytes follow: eight are taken at once.
using ChecksumTables = std::array<std::array<uint32_t, 256>, 8>;
constexpr ChecksumTables kChecksums = []() {
  constexpr uint32_t kPolynomial = 0xEDB88320; // of CRC-32, the lowest bit first
  ChecksumTables tables{};
  for (uint32_t byte = 0; byte < 256; ++byte) {
    uint32_t remainder = byte;
    for (int bit = 0; bit < 8; ++bit) remainder = remainder >> 1 ^ (kPolynomial & (0 - (remainder & 1)));
    tables[0][byte] = remainder;
  }
  for (size_t table = 1; table < tables.size(); ++table) {
    for (size_t byte = 0; byte < 256; ++byte) {
      const uint32_t before = tables[table - 1][byte];
      tables[table][byte] = before >> 8 ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}();

uint32_t checksum(uint32_t sum, std::span<const uint8_t> bytes) {
  for (; bytes.size() >= 8; bytes = bytes.subspan(8)) {
    for (size_t i = 0; i < 4; ++i) sum ^= uint32_t{bytes[i]} << 8 * i;
    uint32_t next = 0;
    for (size_t i = 0; i < 4; ++i) next ^= kChecksums[7 - i][sum >> 8 * i & 0xFF] ^ kChecksums[3 - i][bytes[4 + i]];
    sum = next;
  }
  for (const uint8_t byte : bytes) sum = sum >> 8 ^ kChecksums[0][(sum ^ byte) & 0xFF];
  return sum;
}

std::array<uint8_t, 4> bigEndian(size_t number) {
  std::array<uint8_t, 4> bytes{};
  for (size_t i = 0; i < 4; ++i) bytes[i] = static_cast<uint8_t>(number >> 8 * (3 - i));
  return bytes;
}

// A chunk: length of the data, type, data, checksum of type and data.
std::string putChunk(const PutBytes &put, std::string_view type, std::span<const uint8_t> data) {
  std::array<uint8_t, 8> head{};
  const auto length = bigEndian(data.size());
  std::copy(type.begin(), type.end(), std::copy(length.begin(), length.end(), head.begin()));
  const uint32_t sum = ~checksum(checksum(~uint32_t{0}, std::span(head).subspan(4)), data);
  std::string failure = put(head);
  if (failure.empty()) failure = put(data);
  return failure.empty() ? put(bigEndian(sum)) : failure;
}

// Bits of a colour number: as many as the palette needs.
int depthOf(const ColourNumbers &numbers) {
  const size_t colours = numbers.palette.size();
  return colours <= 2 ? 1 : colours <= 4 ? 2 : colours <= 16 ? 4 : 8;
}

std::string putHeader(const PixelView &picture, const ColourNumbers &numbers, const PutBytes &put) {
  const bool indexed = !numbers.palette.empty();
  const auto width = bigEndian(static_cast<size_t>(picture.width));
  const auto height = bigEndian(static_cast<size_t>(picture.height));
  std::array<uint8_t, 13> header{}; // compression, filter and interlace are 0
  std::copy(height.begin(), height.end(), std::copy(width.begin(), width.end(), header.begin()));
  header[8] = static_cast<uint8_t>(indexed ? depthOf(numbers) : 8);
  header[9] = indexed ? kIndexed : kTrueColour;
  return putChunk(put, "IHDR", header);
}

std::string putPalette(std::span<const uint32_t> palette, const PutBytes &put) {
  std::vector<uint8_t> bytes;
  for (const uint32_t colour : palette) {
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<uint8_t>(colour >> shift));
  }
  return putChunk(put, "PLTE", bytes);
}

// Pixels for each unit of the axis: the format's way to tell their shape.
std::string putTallPixels(const PutBytes &put) {
  constexpr std::array<uint8_t, 9> kTwoAcrossForOneDown{0, 0, 0, 2, 0, 0, 0, 1, 0};
  return putChunk(put, "pHYs", kTwoAcrossForOneDown);
}

// A row is 0, its filter, and its pixels, padded to a whole byte. Rows are handed on in pieces.
void addIndexedRow(Deflater &deflater, std::span<const uint8_t> entries, int depth) {
  std::array<uint8_t, 4096> piece{};
  const auto perByte = static_cast<size_t>(8 / depth);
  addBytes(deflater, std::span(piece).first(1));
  while (!entries.empty()) {
    const auto part = entries.first(std::min(entries.size(), piece.size() * perByte));
    const size_t bytes = (part.size() + perByte - 1) / perByte;
    for (size_t i = 0; i < bytes; ++i) {
      uint32_t byte = 0;
      for (size_t n = 0; n < perByte; ++n) {
        const size_t pixel = i * perByte + n;
        byte = byte << depth | (pixel < part.size() ? part[pixel] : 0U);
      }
      piece[i] = static_cast<uint8_t>(byte);
    }
    addBytes(deflater, std::span(piece).first(bytes));
    entries = entries.subspan(part.size());
  }
}

void addColourRow(Deflater &deflater, std::span<const uint32_t> words) {
  constexpr size_t kPiecePixels = 1024;
  std::array<uint8_t, 3 * kPiecePixels> piece{};
  addBytes(deflater, std::span(piece).first(1));
  while (!words.empty()) {
    const auto part = words.first(std::min(words.size(), kPiecePixels));
    for (size_t i = 0; i < part.size(); ++i) {
      piece[3 * i] = static_cast<uint8_t>(part[i] >> 16);
      piece[3 * i + 1] = static_cast<uint8_t>(part[i] >> 8);
      piece[3 * i + 2] = static_cast<uint8_t>(part[i]);
    }
    addBytes(deflater, std::span(piece).first(3 * part.size()));
    words = words.subspan(part.size());
  }
}

std::string putRows(const PixelView &picture, const ColourNumbers &numbers, const PutBytes &put) {
  Deflater deflater([&put](std::span<const uint8_t> bytes) { return putChunk(put, "IDAT", bytes); });
  const auto width = static_cast<size_t>(picture.width);
  for (size_t first = 0; first < picture.words.size() && deflater.failure.empty(); first += width) {
    if (numbers.palette.empty()) {
      addColourRow(deflater, picture.words.subspan(first, width));
    } else {
      addIndexedRow(deflater, numbers.entries.subspan(first, width), depthOf(numbers));
    }
  }
  return finishStream(deflater);
}

} // namespace

std::string putPng(const PixelView &picture, const ColourNumbers &numbers, bool tallPixels, const PutBytes &put) {
  if (picture.width <= 0 || picture.height <= 0) return "an empty picture cannot be a PNG file";
  std::string failure = put(kSignature);
  if (failure.empty()) failure = putHeader(picture, numbers, put);
  if (failure.empty() && !numbers.palette.empty()) failure = putPalette(numbers.palette, put);
  if (failure.empty() && tallPixels) failure = putTallPixels(put);
  if (failure.empty()) failure = putRows(picture, numbers, put);
  return failure.empty() ? putChunk(put, "IEND", {}) : failure;
}
