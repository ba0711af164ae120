// The order of pixel bits in 4-colour graphics and videos of SymbOS.
#pragma once

#include <cstdint>
#include <span>

// Reorders the bytes of a picture of width x height pixels in place. A byte of four pixels holds their low bits in bits
// 7-4 and their high bits in bits 3-0; reordered, it holds pixel after pixel, the left one in bits 7-6. The number of
// bytes is rounded from the size; `bytes` may hold fewer.
void pairPictureBits(std::span<uint8_t> bytes, int32_t width, int32_t height);
