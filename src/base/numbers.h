// Flags and rounding.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

// A 16-bit boolean of the viewer's records: true is -1, false is 0.
using Flag16 = int16_t;
inline constexpr Flag16 kTrue = -1;
inline constexpr Flag16 kFalse = 0;

constexpr Flag16 toFlag(bool value) { return value ? kTrue : kFalse; }

// The nearest whole number, halves to the even one: 2.5 -> 2, 3.5 -> 4. `value` must fit int32_t.
inline int32_t roundHalfEven(double value) { return static_cast<int32_t>(std::nearbyint(value)); }

// The little-endian word at an index, 0 to 65535.
inline int64_t wordAt(std::span<const uint8_t> bytes, size_t at) { return bytes[at] | bytes[at + 1] << 8; }
