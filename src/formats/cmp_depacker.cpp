#include "formats/cmp_depacker.h"

#include <algorithm>

// A byte of the output is zero or stored; masks tell which, and masks that are zero are themselves left out:
//   control byte        a bit for each of 8 masks, highest first: 1, the mask is stored
//   the stored masks    a bit for each of 8 bytes: 1, the byte is stored
//   the stored bytes
// and so on for every 64 bytes. Bytes of a direct line are as they stand; of the other lines they are combined with the
// line above by exclusive or.

namespace {

constexpr uint16_t kMaskTable = 0x7EF8; // inside the input area, which it overwrites: intended
constexpr uint8_t kMasks = 8;
constexpr uint16_t kLineBuffer = 0x7F00; // likewise

constexpr uint16_t kBytesPerLineAt = 0;
constexpr uint16_t kLinesAt = 1;
constexpr uint16_t kDirectLinesAt = 2;
constexpr uint16_t kStreamAt = 3;

uint8_t nextInput(CmpDepacker &depacker) { return depacker.memory[depacker.input++]; }

void takeNextMask(CmpDepacker &depacker) {
  depacker.mask = depacker.memory[static_cast<size_t>(kMaskTable) + depacker.tablePosition];
  ++depacker.tablePosition;
  depacker.maskBits = 8;
}

void fillMaskTable(CmpDepacker &depacker) {
  const uint8_t control = nextInput(depacker);
  for (uint8_t i = 0; i < kMasks; ++i) {
    const bool stored = (control << i & 0x80) != 0;
    const uint8_t mask = stored ? nextInput(depacker) : uint8_t{0};
    depacker.memory[static_cast<size_t>(kMaskTable) + i] = mask;
  }
  depacker.tablePosition = 0;
}

uint8_t decodeByte(CmpDepacker &depacker) {
  const bool stored = (depacker.mask & 0x80) != 0;
  depacker.mask = static_cast<uint8_t>(depacker.mask << 1);
  const uint8_t byte = stored ? nextInput(depacker) : uint8_t{0};
  if (--depacker.maskBits == 0) {
    if (depacker.tablePosition == kMasks) fillMaskTable(depacker);
    takeNextMask(depacker);
  }
  return byte;
}

} // namespace

void startCmpDepacker(CmpDepacker &depacker, std::span<const uint8_t> file) {
  depacker = {};
  std::copy_n(file.begin(), std::min(file.size(), kCmpInputBytes), depacker.memory.begin());
  depacker.bytesPerLine = depacker.memory[kBytesPerLineAt];
  depacker.linesLeft = depacker.memory[kLinesAt];
  // Counted down before it is tested, and wider than a byte: 0 never comes back to 0, so all lines are direct.
  // Intended.
  depacker.directLines = depacker.memory[kDirectLinesAt] == 0 ? int16_t{-1} : int16_t{depacker.memory[kDirectLinesAt]};
  depacker.input = kStreamAt;
  fillMaskTable(depacker);
  takeNextMask(depacker);
}

bool depackCmpByte(CmpDepacker &depacker) {
  if (depacker.output == kCmpMemoryBytes) return false;
  const uint8_t decoded = decodeByte(depacker);
  uint8_t &above = depacker.memory[static_cast<size_t>(kLineBuffer) + depacker.column];
  above = depacker.directLines != 0 ? decoded : static_cast<uint8_t>(decoded ^ above);
  depacker.memory[depacker.output++] = above;

  // Counters of 8 bits: 0 bytes a line are 256, and 0 lines are 256.
  if (++depacker.column != depacker.bytesPerLine) return true;
  depacker.column = 0;
  if (depacker.directLines > 0) --depacker.directLines;
  return --depacker.linesLeft != 0;
}
