#include "pixels/cmp_depacker.h"

#include <algorithm>
#include <cstring>

// Each group of 64 output bytes, bits highest first:
//   control byte        a bit for each of 8 masks: 1 stored, 0 the mask is zero
//   the stored masks    a bit for each of 8 bytes: 1 stored, 0 the byte is zero
//   the stored bytes
// A direct line is stored itself, any other as its exclusive or with the line above.

namespace {

constexpr size_t kMaskTable = 0x7EF8;  // inside the input area: intended, as in the memory of the machine
constexpr size_t kLineBuffer = 0x7F00; // likewise
constexpr size_t kMasks = 8;
constexpr size_t kMaskBytes = 8; // of the output

constexpr size_t kBytesPerLineAt = 0;
constexpr size_t kLinesAt = 1;
constexpr size_t kDirectLinesAt = 2;
constexpr size_t kStreamAt = 3;

// Upper bound of input for one line: 256 bytes + 4 groups of 1 control byte and 8 masks.
constexpr size_t kMaxLineInput = 256 + 4 * (1 + kMasks);

// Reads a control byte and its masks. Returns the next input position.
size_t fillMaskTable(uint8_t *memory, size_t input) {
  const uint8_t control = memory[input++];
  for (size_t i = 0; i < kMasks; ++i) {
    memory[kMaskTable + i] = (control << i & 0x80) != 0 ? memory[input++] : uint8_t{0};
  }
  return input;
}

// The rest of the current mask, highest bit first.
uint8_t maskAt(const uint8_t *memory, size_t decoded) {
  const uint8_t mask = memory[kMaskTable + decoded / kMaskBytes % kMasks];
  return static_cast<uint8_t>(mask << decoded % kMaskBytes);
}

bool masksUsedUp(size_t decoded) { return decoded % (kMasks * kMaskBytes) == 0; }

// Stores each byte in the line buffer before it reads the next one, which may come from there.
void unpackByteByByte(CmpDepacker &depacker, size_t bytes) {
  uint8_t *const memory = depacker.memory.data();
  for (size_t column = 0; column < bytes; ++column) {
    const bool stored = (maskAt(memory, depacker.decoded) & 0x80) != 0;
    const uint8_t byte = stored ? memory[depacker.input++] : uint8_t{0};
    // New masks are read before the byte is stored in the line buffer, which may overlap them.
    if (masksUsedUp(++depacker.decoded)) depacker.input = fillMaskTable(memory, depacker.input);
    uint8_t &above = memory[kLineBuffer + column];
    above = depacker.directLines != 0 ? byte : static_cast<uint8_t>(byte ^ above);
    memory[depacker.output++] = above;
  }
}

// Expands `count` bytes by their mask. Returns how many bytes it took from `source`. Most masks are zero or full; in
// the others a branch per bit would be mispredicted.
size_t expand(uint32_t mask, size_t count, const uint8_t *source, uint8_t *target) {
  if (mask == 0) {
    std::memset(target, 0, count);
    return 0;
  }
  if (mask == 0xFF && count == kMaskBytes) {
    std::memcpy(target, source, kMaskBytes);
    return kMaskBytes;
  }
  size_t taken = 0;
  for (size_t i = 0; i < count; ++i, mask <<= 1) {
    const uint32_t stored = mask >> 7 & 1;
    target[i] = static_cast<uint8_t>(source[taken] & (0U - stored));
    taken += stored;
  }
  return taken;
}

// The same, a mask at a time. The input of the line must end before the mask table: then the line can be read whole
// before it is stored in the line buffer.
void unpackMaskByMask(CmpDepacker &depacker, size_t bytes) {
  uint8_t *const memory = depacker.memory.data();
  uint8_t *const line = memory + depacker.output;
  const uint8_t *source = memory + depacker.input;
  for (size_t column = 0; column < bytes;) {
    const size_t count = std::min(kMaskBytes - depacker.decoded % kMaskBytes, bytes - column);
    source += expand(maskAt(memory, depacker.decoded), count, source, line + column);
    column += count;
    depacker.decoded += count;
    if (masksUsedUp(depacker.decoded)) source = memory + fillMaskTable(memory, static_cast<size_t>(source - memory));
  }
  depacker.input = static_cast<size_t>(source - memory);

  uint8_t *const above = memory + kLineBuffer;
  if (depacker.directLines == 0) {
    for (size_t i = 0; i < bytes; ++i) line[i] ^= above[i];
  }
  std::copy_n(line, bytes, above);
  depacker.output += bytes;
}

} // namespace

void startCmpDepacker(CmpDepacker &depacker, std::span<const uint8_t> file) {
  const size_t given = std::min(file.size(), kCmpInputBytes);
  std::copy_n(file.begin(), given, depacker.memory.begin());
  std::fill(depacker.memory.begin() + static_cast<std::ptrdiff_t>(given), depacker.memory.end(), uint8_t{0});
  depacker.output = kCmpOutput;
  // 8-bit counters: 0 means 256.
  depacker.bytesPerLine = depacker.memory[kBytesPerLineAt] == 0 ? 256 : depacker.memory[kBytesPerLineAt];
  depacker.linesLeft = depacker.memory[kLinesAt] == 0 ? 256 : depacker.memory[kLinesAt];
  // 0 makes all lines direct: intended, the counter is decremented before the test and wider than a byte.
  depacker.directLines = depacker.memory[kDirectLinesAt] == 0 ? -1 : depacker.memory[kDirectLinesAt];
  depacker.decoded = 0;
  depacker.input = fillMaskTable(depacker.memory.data(), kStreamAt);
}

bool depackCmpLine(CmpDepacker &depacker) {
  const size_t bytes = std::min(depacker.bytesPerLine, kCmpMemoryBytes - depacker.output);
  const bool apart = depacker.input + kMaxLineInput <= kMaskTable;
  (apart ? unpackMaskByMask : unpackByteByByte)(depacker, bytes);
  if (depacker.directLines > 0) --depacker.directLines;
  return --depacker.linesLeft != 0 && depacker.output != kCmpMemoryBytes;
}
