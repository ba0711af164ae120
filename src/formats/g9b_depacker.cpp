#include "formats/g9b_depacker.h"

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

struct BitReader {
  std::span<const uint8_t> packed;
  size_t &source;
  uint32_t buffer = 0x80; // a mark bit stands below the bits that are left
  bool atEnd = false;     // something was asked for beyond the last byte

  uint8_t byte() {
    if (source < packed.size()) return packed[source++];
    atEnd = true;
    return 0;
  }

  uint32_t bit() {
    const uint32_t taken = buffer >> 7;
    buffer = buffer << 1 & 0xFF;
    if (buffer != 0) return taken;
    const uint32_t fresh = byte();
    buffer = (fresh << 1 & 0xFF) + 1;
    return fresh >> 7;
  }
};

// The length of a copy, at least 2, or kBlockEnd.
uint32_t readLength(BitReader &reader) {
  uint32_t length = 1;
  while (!reader.atEnd && reader.bit() != 0) {
    length = 2 * length + reader.bit();
    if (length >= kEndLength) return kBlockEnd;
  }
  return length + 1;
}

size_t readOffset(BitReader &reader) {
  size_t offset = reader.byte();
  if (offset < 0x80) return offset;
  offset &= 0x7F;
  for (const size_t weight : {1024U, 512U, 256U, 128U}) offset += reader.bit() * weight;
  return offset;
}

} // namespace

void depackG9bBlock(G9bDepacker &depacker, std::span<const uint8_t> packed, std::span<uint8_t> unpacked) {
  depacker.source += kLengthBytes;
  BitReader reader{packed, depacker.source};
  size_t &written = depacker.written;
  while (true) {
    if (reader.bit() == 0) {
      const uint8_t literal = reader.byte();
      if (reader.atEnd || written == unpacked.size()) return;
      unpacked[written++] = literal;
      continue;
    }
    const uint32_t length = readLength(reader);
    if (length == kBlockEnd) return;
    const size_t distance = readOffset(reader) + 1;
    if (reader.atEnd || written == unpacked.size()) return;
    for (uint32_t i = 0; i < length && written < unpacked.size(); ++i, ++written) {
      // Before the first byte of the output lies nothing.
      unpacked[written] = distance <= written ? unpacked[written - distance] : uint8_t{0};
    }
  }
}
