// Palette entries packed into bytes.
#pragma once

#include <cstddef>

// Entry `i` of a byte that holds kPixels of them, the leftmost in the highest bits.
template <size_t kPixels> constexpr size_t entryOf(size_t byte, size_t i) {
  constexpr size_t kBits = 8 / kPixels;
  return byte >> (8 - kBits - i * kBits) & ((size_t{1} << kBits) - 1);
}
