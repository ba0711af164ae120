#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace samples {

using Bytes = std::vector<std::uint8_t>;

struct Rgb {
  int red = 0, green = 0, blue = 0; // 0..255
};

// A true-colour picture, row-major, top row first.
struct TruePicture {
  int width = 0, height = 0;
  std::vector<Rgb> pixels;
};

// A picture of palette indexes, row-major, top row first. As an overlay of a YJK picture the pixels
// that show the YJK colour hold kSeeThrough.
struct IndexedPicture {
  int width = 0, height = 0;
  Bytes indexes;
};

constexpr std::uint8_t kSeeThrough = 0xFF;

// Colour levels of one palette register, 0..7 each.
struct Levels {
  std::uint8_t red = 0, green = 0, blue = 0;
};

using Palette = std::array<Levels, 16>;

// Colour words 0x00RRGGBB of the sixteen palette entries.
using ColourWords = std::array<std::uint32_t, 16>;

inline IndexedPicture blankPicture(int width, int height, std::uint8_t index) {
  return {width, height, Bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), index)};
}

} // namespace samples
