#pragma once

#include <array>
#include <cstdint>

namespace samples {

using Glyph = std::array<std::uint8_t, 8>;

// Eight lines of a character, bit 7 left: ASCII from blank to tilde and the box characters of
// drawing.h. Others are blank.
const Glyph &glyphOf(char character);

// Five lines of a hexadecimal digit 0..15 in three columns, bit 2 left; the last three lines are blank.
const Glyph &smallDigitOf(int digit);

} // namespace samples
