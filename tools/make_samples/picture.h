#pragma once

// Pictures before they are encoded.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace samples {

struct Rgb {
  int red = 0, green = 0, blue = 0; // 0 to 255
};

// Row-major, top row first.
template <typename Pixel> struct Picture {
  int width, height;
  std::vector<Pixel> pixels;

  Picture(int columns, int lines, Pixel fill = {})
      : width(columns), height(lines),
        pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(lines), fill) {}

  Pixel &at(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
  const Pixel &at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

using TruePicture = Picture<Rgb>;

// Palette entries. In an overlay kSeeThrough marks the pixels that show what is below.
using IndexedPicture = Picture<std::uint8_t>;
constexpr std::uint8_t kSeeThrough = 0xFF;

template <typename Pixel>
Picture<Pixel> cropped(const Picture<Pixel> &picture, int left, int top, int width, int height) {
  Picture<Pixel> part(width, height);
  for (int y = 0; y < height; ++y) {
    std::copy_n(&picture.at(left, top + y), width, &part.at(0, y));
  }
  return part;
}

// 16 colours as three octal digits: red, green and blue, 0 to 7 each.
using Palette = std::array<int, 16>;

using Colours = std::vector<Rgb>;

// The first `count` colours of the palette.
Colours coloursOf(const Palette &palette, std::size_t count = 16);

extern const Palette kDefaultPalette;
extern const Palette kCoastPalette, kWheelPalette, kPlasmaPalette; // of the scenes
extern const Palette kAmberPalette;                                // four shades from black
extern const Colours kSymbosColours;                               // the first four serve pictures of four colours

// In shades between two colours.
TruePicture tinted(const TruePicture &picture, Rgb dark, Rgb light);

// Every pixel as one of the colours or as a regular pattern of two of them, which begins at that line.
IndexedPicture dithered(const TruePicture &picture, const Colours &colours, int firstLine = 0);

// The same with two colours in eight neighbouring pixels of a line at most.
IndexedPicture ditheredInPairs(const TruePicture &picture, const Colours &colours);

// 0 to 63, each once in a square of 8 x 8 pixels.
int threshold(int x, int y);

} // namespace samples
