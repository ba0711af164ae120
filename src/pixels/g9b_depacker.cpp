#include "pixels/g9b_depacker.h"

#include <algorithm>
#include <cstring>

// A block: its length (2 bytes, ignored), then a mix of bits and bytes. Bits are taken from a byte highest first; the
// next byte is fetched if none is left.
//   0 byte              a literal
//   1 length offset     a copy of earlier output; source and target may overlap
// length: starts at 1; while a bit 1 follows, the next bit is appended; a bit 0 ends it. A length of 17 bits ends the
// block. The copy is one byte longer.
// offset: a byte; if it is 128 or more, its low 7 bits plus four bits of weight 1024 to 128. 0 is the last byte.

namespace {

constexpr size_t kLengthBytes = 2;
constexpr uint32_t kEndLength = 65536;
constexpr uint32_t kBlockEnd = 0;

// 9 bits: those left, top down, and a 1 below them.
constexpr uint32_t kAllBits = 0x1FF;
constexpr uint32_t kNoBits = 256;

struct BitReader {
  std::span<const uint8_t> packed;
  size_t source;
  uint32_t bits = kNoBits;
  bool atEnd = false; // a read went beyond the last byte

  uint32_t byte() {
    if (source < packed.size()) return packed[source++];
    atEnd = true;
    return 0;
  }

  void fetchBits() { bits = byte() << 1 | 1; }

  uint32_t bit() {
    if (bits == kNoBits) fetchBits();
    const uint32_t next = bits >> 8;
    bits = bits << 1 & kAllBits;
    return next;
  }

  uint32_t number(int count) {
    uint32_t value = 0;
    while (count-- > 0) value = value << 1 | bit();
    return value;
  }
};

// The length of a copy, at least 2, or kBlockEnd.
uint32_t readLength(BitReader &reader) {
  uint32_t length = 1;
  while (reader.bit() != 0) {
    length = length << 1 | reader.bit();
    if (length >= kEndLength || reader.atEnd) return kBlockEnd;
  }
  return reader.atEnd ? kBlockEnd : length + 1;
}

size_t readOffset(BitReader &reader) {
  const size_t offset = reader.byte();
  return offset < 0x80 ? offset : (offset & 0x7F) + 0x80 * size_t{reader.number(4)};
}

// Copies within the output, up to its end; bytes before its start read as 0.
size_t copyEarlier(std::span<uint8_t> unpacked, size_t written, size_t distance, size_t length) {
  constexpr size_t kChunk = 8; // copied at once if there is room; the excess is zeroed again
  const size_t end = written + std::min(length, unpacked.size() - written);
  uint8_t *const bytes = unpacked.data();
  if (distance >= kChunk && distance <= written && end + kChunk <= unpacked.size()) {
    for (size_t at = written; at < end; at += kChunk) std::memcpy(bytes + at, bytes + at - distance, kChunk);
    std::memset(bytes + end, 0, kChunk);
  } else {
    for (size_t at = written; at < end; ++at) bytes[at] = distance <= at ? bytes[at - distance] : uint8_t{0};
  }
  return end;
}

} // namespace

void depackG9bBlock(G9bDepacker &depacker, std::span<const uint8_t> packed, std::span<uint8_t> unpacked) {
  BitReader reader{packed, std::min(depacker.source + kLengthBytes, packed.size())};
  size_t written = depacker.written;
  while (!reader.atEnd && written < unpacked.size()) {
    if (reader.bit() == 0) {
      const uint8_t literal = static_cast<uint8_t>(reader.byte());
      if (!reader.atEnd) unpacked[written++] = literal;
      continue;
    }
    const uint32_t length = readLength(reader);
    if (length == kBlockEnd) break;
    const size_t distance = readOffset(reader) + 1;
    if (!reader.atEnd) written = copyEarlier(unpacked, written, distance, length);
  }
  depacker.source = reader.source;
  depacker.written = written;
}
