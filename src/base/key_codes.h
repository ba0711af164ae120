// Virtual-key codes of the window system; a letter's code is its capital.
#pragma once

namespace key_code {

inline constexpr int kReturn = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kDigit0 = 48;
inline constexpr int kNumpad0 = 96;
inline constexpr int kNumpadPlus = 107;
inline constexpr int kNumpadMinus = 109;
inline constexpr int kF1 = 112;
inline constexpr int kF5 = 116;
inline constexpr int kF11 = 122;
inline constexpr int kPlus = 187;
inline constexpr int kComma = 188;
inline constexpr int kMinus = 189;
inline constexpr int kPeriod = 190;

} // namespace key_code
