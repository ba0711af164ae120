#include "pixels/cmp_depacker.h"

#include "base/processor.h"

#include <algorithm>

#ifdef __x86_64__
#include <tmmintrin.h>
// Compiled for SSSE3 whatever the rest of the program is compiled for.
#define KORILAN_SHUFFLES __attribute__((target("ssse3")))
#endif

// A byte of the output is zero or stored; masks tell which, and masks that are zero are themselves left out:
//   control byte        a bit for each of 8 masks, highest first: 1, the mask is stored
//   the stored masks    a bit for each of 8 bytes: 1, the byte is stored
//   the stored bytes
// and so on for every 64 bytes. Bytes of a direct line are as they stand; of the other lines they are combined with the
// line above by exclusive or.

namespace {

constexpr size_t kMaskTable = 0x7EF8;  // inside the input area, which it overwrites: intended
constexpr size_t kLineBuffer = 0x7F00; // likewise
constexpr size_t kMasks = 8;
constexpr size_t kMaskBytes = 8; // of the output

constexpr size_t kBytesPerLineAt = 0;
constexpr size_t kLinesAt = 1;
constexpr size_t kDirectLinesAt = 2;
constexpr size_t kStreamAt = 3;

// No line of 256 bytes takes more: its bytes, and the control bytes and masks of four groups that begin in it or right
// behind it.
constexpr size_t kMostLineInput = 256 + 4 * (1 + kMasks);

// Reads a control byte and its masks. Returns where the input goes on.
size_t fillMaskTable(uint8_t *memory, size_t input) {
  const uint8_t control = memory[input++];
  for (size_t i = 0; i < kMasks; ++i) {
    memory[kMaskTable + i] = (control << i & 0x80) != 0 ? memory[input++] : uint8_t{0};
  }
  return input;
}

// The bits for the next bytes that have a mask together, highest first.
uint8_t maskAt(const uint8_t *memory, size_t decoded) {
  const uint8_t mask = memory[kMaskTable + decoded / kMaskBytes % kMasks];
  return static_cast<uint8_t>(mask << decoded % kMaskBytes);
}

bool masksUsedUp(size_t decoded) { return decoded % (kMasks * kMaskBytes) == 0; }

// Each byte goes into the line buffer before the next one is read, perhaps from there.
void unpackByteByByte(CmpDepacker &depacker, size_t bytes) {
  uint8_t *const memory = depacker.memory.data();
  for (size_t column = 0; column < bytes; ++column) {
    const bool stored = (maskAt(memory, depacker.decoded) & 0x80) != 0;
    const uint8_t byte = stored ? memory[depacker.input++] : uint8_t{0};
    // New masks are read at once, before the byte goes into the line buffer.
    if (masksUsedUp(++depacker.decoded)) depacker.input = fillMaskTable(memory, depacker.input);
    uint8_t &above = memory[kLineBuffer + column];
    above = depacker.directLines != 0 ? byte : static_cast<uint8_t>(byte ^ above);
    memory[depacker.output++] = above;
  }
}

#ifdef __x86_64__

// Byte i that a mask makes is stored byte `from[i]`, or zero where that is 0x80.
struct MaskBytes {
  std::array<uint8_t, kMaskBytes> from;
  uint8_t stored; // how many are
};

constexpr std::array<MaskBytes, 256> kMaskBytesOf = []() {
  std::array<MaskBytes, 256> table{};
  for (size_t mask = 0; mask < table.size(); ++mask) {
    MaskBytes &bytes = table[mask];
    for (size_t i = 0; i < kMaskBytes; ++i) bytes.from[i] = (mask << i & 0x80) != 0 ? bytes.stored++ : uint8_t{0x80};
  }
  return table;
}();

// Writes 8 bytes: what a mask makes of the bytes at `source`. Returns how many of these are stored ones.
KORILAN_SHUFFLES inline size_t expand(uint8_t mask, const uint8_t *source, uint8_t *target) {
  const MaskBytes &bytes = kMaskBytesOf[mask];
  const __m128i stored = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(source));
  const __m128i from = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(bytes.from.data()));
  _mm_storel_epi64(reinterpret_cast<__m128i *>(target), _mm_shuffle_epi8(stored, from));
  return bytes.stored;
}

// As byte by byte, where neither the input nor the bytes behind the line touch anything else.
KORILAN_SHUFFLES void unpackMaskByMask(CmpDepacker &depacker, size_t bytes) {
  uint8_t *const memory = depacker.memory.data();
  uint8_t *const line = memory + depacker.output;
  size_t input = depacker.input;
  size_t decoded = depacker.decoded;
  for (size_t column = 0; column < bytes;) {
    const size_t first = column;
    if (decoded % kMaskBytes == 0 && bytes - column >= kMaskBytes) {
      const size_t index = decoded / kMaskBytes % kMasks;
      const size_t masks = std::min(kMasks - index, (bytes - column) / kMaskBytes);
      for (size_t i = 0; i < masks; ++i, column += kMaskBytes) {
        input += expand(memory[kMaskTable + index + i], memory + input, line + column);
      }
    } else { // the mask of bytes at the end of a line serves at the start of the next one too
      column += std::min(kMaskBytes - decoded % kMaskBytes, bytes - column);
      const auto mask = static_cast<uint8_t>(maskAt(memory, decoded) & 0xFF00 >> (column - first));
      input += expand(mask, memory + input, line + first);
    }
    decoded += column - first;
    if (masksUsedUp(decoded)) {
      const uint8_t control = memory[input++];
      input += expand(control, memory + input, memory + kMaskTable);
    }
  }
  depacker.input = input;
  depacker.decoded = decoded;

  uint8_t *const above = memory + kLineBuffer;
  if (depacker.directLines == 0) {
    for (size_t i = 0; i < bytes; ++i) line[i] ^= above[i];
  }
  std::copy_n(line, bytes, above);
  depacker.output += bytes;
}

auto *const unpackApart = hasSsse3() ? unpackMaskByMask : unpackByteByByte;

#else

auto *const unpackApart = unpackByteByByte;

#endif

} // namespace

void startCmpDepacker(CmpDepacker &depacker, std::span<const uint8_t> file) {
  const size_t given = std::min(file.size(), kCmpInputBytes);
  std::copy_n(file.begin(), given, depacker.memory.begin());
  std::fill(depacker.memory.begin() + static_cast<std::ptrdiff_t>(given), depacker.memory.end(), uint8_t{0});
  depacker.output = kCmpOutput;
  // Counters of 8 bits: 0 bytes a line are 256, and 0 lines are 256.
  depacker.bytesPerLine = depacker.memory[kBytesPerLineAt] == 0 ? 256 : depacker.memory[kBytesPerLineAt];
  depacker.linesLeft = depacker.memory[kLinesAt] == 0 ? 256 : depacker.memory[kLinesAt];
  // Counted down before it is tested, and wider than a byte: 0 never comes back to 0, so all lines are direct.
  // Intended.
  depacker.directLines = depacker.memory[kDirectLinesAt] == 0 ? -1 : depacker.memory[kDirectLinesAt];
  depacker.decoded = 0;
  depacker.input = fillMaskTable(depacker.memory.data(), kStreamAt);
}

bool depackCmpLine(CmpDepacker &depacker) {
  const size_t bytes = std::min(depacker.bytesPerLine, kCmpMemoryBytes - depacker.output);
  const bool apart =
      depacker.input + kMostLineInput <= kMaskTable && depacker.output + bytes + kMaskBytes <= kCmpMemoryBytes;
  (apart ? unpackApart : unpackByteByByte)(depacker, bytes);
  if (depacker.directLines > 0) --depacker.directLines;
  return --depacker.linesLeft != 0 && depacker.output != kCmpMemoryBytes;
}
