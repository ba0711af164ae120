// Small number rules that every room shares.
#pragma once

#include <cstdint>

// A 16-bit boolean of the viewer's records: true is -1, false is 0.
using Flag16 = int16_t;
inline constexpr Flag16 kTrue = -1;
inline constexpr Flag16 kFalse = 0;

constexpr Flag16 toFlag(bool value) { return value ? kTrue : kFalse; }

// The nearest whole number; a value just between two goes to the even one (2.5 -> 2, 3.5 -> 4).
// `value` must lie within the range of int32_t.
int32_t roundHalfEven(double value);
