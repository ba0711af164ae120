// Prefix codes of limited length.
#pragma once

#include <cstdint>
#include <span>

struct HuffmanCode {
  uint16_t bits = 0;  // the first one lowest
  uint8_t length = 0; // 0: the symbol does not occur
};

// The best code for symbols that occur that often, or nearly so if it must be shortened to `maxLength` bits. A code for
// a single symbol has one bit.
void makeHuffmanCode(std::span<const uint32_t> counts, int maxLength, std::span<HuffmanCode> codes);
