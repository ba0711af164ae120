#pragma once

// From true colour to the few colours of a screen mode. All in integers.

#include <algorithm>
#include <cstddef>

#include "picture_types.h"

namespace samples {

// The 8 x 8 ordered pattern, 0..63.
int orderedThreshold(int x, int y);

// The best colours for a picture, dark to bright; fewer when it has no more.
std::vector<Rgb> chooseColours(const TruePicture &picture, int colourCount);

// The best colourCount palette registers for a picture, dark to bright; the rest stays black.
Palette choosePalette(const TruePicture &picture, int colourCount);

// How different two colours look.
int squaredDistance(Rgb a, Rgb b);
std::size_t nearestOf(const std::vector<Rgb> &colours, Rgb wanted);

// Nearest colours, in a palette out of the first colourCount, the error spread over the neighbours.
IndexedPicture diffuseToPalette(const TruePicture &picture, const ColourWords &colours, int colourCount);

IndexedPicture diffuseToColours(const TruePicture &picture, const std::vector<Rgb> &colours);

// Mixtures of two colours in the ordered pattern.
IndexedPicture orderToPalette(const TruePicture &picture, const ColourWords &colours, int colourCount);

// As above with one pair of colours for every 8 x 1 line, for the pattern screens.
IndexedPicture orderToPatternLines(const TruePicture &picture, const ColourWords &colours);

// Shades of one hue: every pixel becomes the mixture of dark and light by its brightness.
TruePicture tinted(const TruePicture &picture, Rgb dark, Rgb light);

// Walks the lines in alternate directions. choose(position, wanted) stores a pixel and returns the
// colour it stands for; the difference goes to the pixels not yet visited.
template <typename Choose> void diffuseErrors(const TruePicture &picture, Choose choose) {
  std::vector<Rgb> below(static_cast<std::size_t>(picture.width) + 2);
  for (int y = 0; y < picture.height; ++y) {
    const int step = y % 2 == 0 ? 1 : -1;
    std::vector<Rgb> here(below.size());
    here.swap(below);
    Rgb ahead;
    for (int n = 0; n < picture.width; ++n) {
      const int x = step > 0 ? n : picture.width - 1 - n;
      const auto position = static_cast<std::size_t>(y * picture.width + x);
      const auto column = static_cast<std::size_t>(x + 1);
      const Rgb pixel = picture.pixels[position];
      // Errors are kept in sixteenths; the bounds keep unreachable colours from piling up error.
      const Rgb wanted = {std::clamp(pixel.red + (here[column].red + ahead.red) / 16, -40, 295),
                          std::clamp(pixel.green + (here[column].green + ahead.green) / 16, -40, 295),
                          std::clamp(pixel.blue + (here[column].blue + ahead.blue) / 16, -40, 295)};
      const Rgb shown = choose(position, wanted);
      const Rgb error = {wanted.red - shown.red, wanted.green - shown.green, wanted.blue - shown.blue};
      const auto spread = [error](Rgb &target, int share) {
        target.red += error.red * share;
        target.green += error.green * share;
        target.blue += error.blue * share;
      };
      ahead = {};
      spread(ahead, 7);
      spread(below[static_cast<std::size_t>(x + 1 - step)], 3);
      spread(below[column], 5);
      spread(below[static_cast<std::size_t>(x + 1 + step)], 1);
    }
  }
}

} // namespace samples
