#include "pixels/symbos_bits.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<uint8_t, 256> kPairedBits = []() {
  constexpr std::array<int, 8> kTargets = {1, 3, 5, 7, 0, 2, 4, 6}; // of bits 0 to 7
  std::array<uint8_t, 256> table{};
  for (size_t byte = 0; byte < table.size(); ++byte) {
    for (size_t bit = 0; bit < kTargets.size(); ++bit) {
      if ((byte >> bit & 1) != 0) table[byte] = static_cast<uint8_t>(table[byte] | 1 << kTargets[bit]);
    }
  }
  return table;
}();

} // namespace

void pairPictureBits(std::span<uint8_t> bytes, int32_t width, int32_t height) {
  if (width <= 0 || height <= 0) return; // an empty picture may have one side of any length
  const int64_t count = int64_t{roundHalfEven(width / 4.0 * height - 1)} + 1;
  for (uint8_t &byte : bytes.first(std::min(static_cast<size_t>(count), bytes.size()))) byte = kPairedBits[byte];
}
