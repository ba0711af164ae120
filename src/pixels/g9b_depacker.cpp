#include "pixels/g9b_depacker.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

// A block: its length (2 bytes, not needed), then bits and bytes mixed; a byte of 8 bits is fetched when the next bit
// is wanted and none is left, and bits are taken from the highest down.
//   0 byte              the byte itself
//   1 length offset     a copy of earlier output; the source may overlap what is being written
// length: the number 1, then as long as a bit 1 follows, a bit to append; a bit 0 ends it. A number of 17 bits ends the
// block. The copy is one byte longer than the number.
// offset: a byte; where it is 128 or more, its low 7 bits and four bits of the values 1024 to 128. Offset 0 is the byte
// written last.

namespace {

constexpr size_t kLengthBytes = 2;
constexpr uint32_t kEndLength = 65536;
constexpr uint32_t kBlockEnd = 0;

// Bits are kept in 9: those that are left, from the top down, and a 1 below them.
constexpr uint32_t kBitStates = 512;
constexpr uint32_t kAllBits = kBitStates - 1;
constexpr uint32_t kNoBits = 256;

struct BitReader {
  std::span<const uint8_t> packed;
  size_t source;
  uint32_t bits = kNoBits;
  bool atEnd = false; // something was asked for beyond the last byte

  uint32_t byte() {
    if (source < packed.size()) return packed[source++];
    atEnd = true;
    return 0;
  }

  void fetchBits() { bits = byte() << 1 | 1; }

  uint32_t number(uint32_t count) {
    const auto left = 8 - static_cast<uint32_t>(std::countr_zero(bits));
    const uint32_t first = std::min(count, left);
    const uint32_t rest = count - first;
    uint32_t value = bits >> (9 - first);
    bits = bits << first & kAllBits;
    if (rest == 0) return value;
    fetchBits();
    value = value << rest | bits >> (9 - rest);
    bits = bits << rest & kAllBits;
    return value;
  }
};

// What the bits of one byte add to a length.
struct LengthStep {
  uint8_t count; // bits to append
  uint8_t appended;
  bool complete;
  bool bitOwed;  // the 1 is read, but not the bit to append
  uint16_t bits; // that are left
};

constexpr std::array<std::array<LengthStep, kBitStates>, 2> kLengthSteps = []() {
  std::array<std::array<LengthStep, kBitStates>, 2> table{};
  for (const bool owed : {false, true}) {
    for (uint32_t state = 1; state < kBitStates; ++state) {
      LengthStep &step = table[owed ? 1 : 0][state];
      step.bitOwed = owed;
      uint32_t bits = state;
      for (; bits != kNoBits && !step.complete; bits = bits << 1 & kAllBits) {
        const uint32_t bit = bits >> 8;
        if (step.bitOwed) {
          step.appended = static_cast<uint8_t>(2U * step.appended + bit);
          ++step.count;
          step.bitOwed = false;
        } else {
          step.bitOwed = bit != 0;
          step.complete = bit == 0;
        }
      }
      step.bits = static_cast<uint16_t>(bits);
    }
  }
  return table;
}();

// The length of a copy, at least 2, or kBlockEnd.
uint32_t readLength(BitReader &reader) {
  uint32_t length = 1;
  for (size_t owed = 0;; reader.fetchBits()) {
    const LengthStep &step = kLengthSteps[owed][reader.bits];
    length = length << step.count | step.appended;
    reader.bits = step.bits;
    if (length >= kEndLength || reader.atEnd) return kBlockEnd;
    if (step.complete) return length + 1;
    owed = step.bitOwed ? 1 : 0;
  }
}

size_t readOffset(BitReader &reader) {
  const size_t offset = reader.byte();
  return offset < 0x80 ? offset : (offset & 0x7F) + 0x80 * size_t{reader.number(4)};
}

constexpr size_t kChunk = 8; // bytes that are copied together, where there is room; perhaps more than asked for

// Returns how many fitted.
size_t copyLiterals(std::span<const uint8_t> source, size_t count, std::span<uint8_t> target) {
  if (source.size() >= kChunk && target.size() >= kChunk) {
    std::memcpy(target.data(), source.data(), kChunk);
    return count;
  }
  const size_t given = std::min({count, source.size(), target.size()});
  std::copy_n(source.begin(), given, target.begin());
  return given;
}

// Copies within the output, up to its end. Before its first byte lies nothing.
size_t copyEarlier(std::span<uint8_t> unpacked, size_t written, size_t distance, size_t length) {
  const size_t end = written + std::min(length, unpacked.size() - written);
  uint8_t *const bytes = unpacked.data();
  if (distance >= kChunk && distance <= written && end + kChunk <= unpacked.size()) {
    for (size_t at = written; at < end; at += kChunk) std::memcpy(bytes + at, bytes + at - distance, kChunk);
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
    if (reader.bits == kNoBits) reader.fetchBits();
    // Zeros above the first 1: so many literals follow one another.
    const auto literals = static_cast<uint32_t>(std::countl_zero(reader.bits << 23));
    if (literals > 0) {
      const size_t given = copyLiterals(packed.subspan(reader.source), literals, unpacked.subspan(written));
      reader.source += given;
      written += given;
      if (given < literals) break;
      reader.bits = reader.bits << literals & kAllBits;
    }
    if (reader.bits == kNoBits) continue;
    reader.bits = reader.bits << 1 & kAllBits;
    const uint32_t length = readLength(reader);
    if (length == kBlockEnd) break;
    const size_t distance = readOffset(reader) + 1;
    if (!reader.atEnd) written = copyEarlier(unpacked, written, distance, length);
  }
  // What the last chunk wrote behind the output.
  std::fill_n(unpacked.begin() + static_cast<std::ptrdiff_t>(written), std::min(kChunk, unpacked.size() - written), 0);
  depacker.source = reader.source;
  depacker.written = written;
}
