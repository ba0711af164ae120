#pragma once

// Level files of the VSCREEN system: tile sets, borders, and sprite sets with their colours.

#include <array>

#include "picture_types.h"

namespace samples {

// 256 x 64 with at most two colours in each 8 x 1 line of a tile: palette, patterns, colours.
Bytes tileSetFile(const IndexedPicture &picture, const Palette &palette);

// 256 x 40 with the byte behind it that the end address takes in.
Bytes borderFile(const IndexedPicture &picture);

// Bits of both layers for the sixteen lines, bit 15 left, and their colours.
struct LayeredSprite {
  std::array<std::uint16_t, 16> bits{}, overBits{};
  std::array<std::uint8_t, 16> colours{}, overColours{};
};

constexpr std::size_t kSpriteCount = 46;

Bytes spriteSetFile(const std::vector<LayeredSprite> &sprites);

// The colours stand in the low halves of the bytes; the high halves take `highHalf`.
Bytes spriteColourFile(const std::vector<LayeredSprite> &sprites, std::uint8_t highHalf);

} // namespace samples
