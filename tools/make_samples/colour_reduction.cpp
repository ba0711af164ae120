#include "colour_reduction.h"

#include <array>

#include "expected_colours.h"

namespace samples {

namespace {

// A colour of the histogram: the middle of a cube of 8 x 8 x 8 colours and its number of pixels.
struct Sample {
  std::array<int, 3> channels{};
  int count = 0;
};

using Samples = std::vector<Sample>;

Rgb rgbOfWord(std::uint32_t word) {
  return {static_cast<int>(word >> 16 & 255), static_cast<int>(word >> 8 & 255), static_cast<int>(word & 255)};
}

Samples histogramOf(const TruePicture &picture) {
  std::vector<int> counts(32 * 32 * 32);
  for (const Rgb pixel : picture.pixels) {
    ++counts[static_cast<std::size_t>(pixel.red / 8 * 1024 + pixel.green / 8 * 32 + pixel.blue / 8)];
  }
  Samples histogram;
  for (int cube = 0; cube < 32 * 32 * 32; ++cube) {
    const int count = counts[static_cast<std::size_t>(cube)];
    if (count == 0) continue;
    histogram.push_back({{cube / 1024 * 8 + 4, cube / 32 % 32 * 8 + 4, cube % 32 * 8 + 4}, count});
  }
  return histogram;
}

// The channel with the largest spread about its mean, and that spread.
std::pair<std::size_t, std::int64_t> widestChannel(const Samples &box) {
  std::pair<std::size_t, std::int64_t> widest{0, -1};
  for (std::size_t channel = 0; channel < 3; ++channel) {
    std::int64_t count = 0, sum = 0, squares = 0;
    for (const Sample &sample : box) {
      const std::int64_t value = sample.channels[channel];
      count += sample.count;
      sum += sample.count * value;
      squares += sample.count * value * value;
    }
    const std::int64_t spread = squares - sum * sum / count;
    if (spread > widest.second) widest = {channel, spread};
  }
  return widest;
}

Rgb meanOf(const Samples &box) {
  std::array<std::int64_t, 3> sums{};
  std::int64_t count = 0;
  for (const Sample &sample : box) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
      sums[channel] += static_cast<std::int64_t>(sample.channels[channel]) * sample.count;
    }
    count += sample.count;
  }
  count = std::max<std::int64_t>(count, 1);
  return {static_cast<int>(sums[0] / count), static_cast<int>(sums[1] / count), static_cast<int>(sums[2] / count)};
}

// Cuts the box of the largest spread at its mean until there are enough boxes.
std::vector<Rgb> cutIntoBoxes(const Samples &histogram, std::size_t boxCount) {
  std::vector<Samples> boxes = {histogram};
  while (boxes.size() < boxCount) {
    std::size_t chosen = 0, channel = 0;
    std::int64_t largest = 0;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      const auto [candidate, spread] = widestChannel(boxes[i]);
      if (boxes[i].size() > 1 && spread > largest) {
        largest = spread;
        chosen = i;
        channel = candidate;
      }
    }
    if (largest == 0) break;
    const Rgb mean = meanOf(boxes[chosen]);
    const int bound = channel == 0 ? mean.red : channel == 1 ? mean.green : mean.blue;
    Samples low, high;
    for (const Sample &sample : boxes[chosen]) {
      Samples &half = sample.channels[channel] <= bound ? low : high;
      half.push_back(sample);
    }
    if (low.empty() || high.empty()) break;
    boxes[chosen] = low;
    boxes.push_back(high);
  }
  std::vector<Rgb> means;
  means.reserve(boxes.size());
  for (const Samples &box : boxes) means.push_back(meanOf(box));
  return means;
}

// Moves every colour to the mean of the samples that are nearest to it.
void settle(std::vector<Rgb> &colours, const Samples &histogram) {
  constexpr int kRounds = 6;
  for (int round = 0; round < kRounds; ++round) {
    std::vector<Samples> nearest(colours.size());
    for (const Sample &sample : histogram) {
      const Rgb colour = {sample.channels[0], sample.channels[1], sample.channels[2]};
      nearest[nearestOf(colours, colour)].push_back(sample);
    }
    for (std::size_t i = 0; i < colours.size(); ++i) {
      if (!nearest[i].empty()) colours[i] = meanOf(nearest[i]);
    }
  }
}

// How two colours mix into a wanted one: the share of the second in sixty-fourths, and the cost,
// which grows with the distance of the mixture and, so that the pattern stays calm, of the two.
struct Mixture {
  int share = 0, cost = 0;
};

Mixture mixtureOf(Rgb first, Rgb second, Rgb wanted) {
  const Rgb along = {second.red - first.red, second.green - first.green, second.blue - first.blue};
  const int length = 3 * along.red * along.red + 5 * along.green * along.green + 2 * along.blue * along.blue;
  const int dot = 3 * along.red * (wanted.red - first.red) + 5 * along.green * (wanted.green - first.green) +
                  2 * along.blue * (wanted.blue - first.blue);
  const int share = length == 0 ? 0 : std::clamp(dot * 64 / length, 0, 64);
  const Rgb mixed = {first.red + along.red * share / 64, first.green + along.green * share / 64,
                     first.blue + along.blue * share / 64};
  const int unrest = share == 0 || share == 64 ? 0 : length / 12;
  return {share, squaredDistance(mixed, wanted) + unrest};
}

} // namespace

int squaredDistance(Rgb a, Rgb b) {
  const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
  return 3 * red * red + 5 * green * green + 2 * blue * blue;
}

std::size_t nearestOf(const std::vector<Rgb> &colours, Rgb wanted) {
  std::size_t nearest = 0;
  int best = squaredDistance(colours[0], wanted);
  for (std::size_t i = 1; i < colours.size(); ++i) {
    const int distance = squaredDistance(colours[i], wanted);
    if (distance < best) {
      best = distance;
      nearest = i;
    }
  }
  return nearest;
}

int orderedThreshold(int x, int y) {
  // The classic recursion: the bits of x ^ y and y, interleaved from the lowest up.
  const int mixed = x ^ y;
  int threshold = 0;
  for (int bit = 0; bit < 3; ++bit) {
    threshold = threshold * 4 + (mixed >> bit & 1) * 2 + (y >> bit & 1);
  }
  return threshold;
}

std::vector<Rgb> chooseColours(const TruePicture &picture, int colourCount) {
  const Samples histogram = histogramOf(picture);
  std::vector<Rgb> colours = cutIntoBoxes(histogram, static_cast<std::size_t>(colourCount));
  settle(colours, histogram);
  std::sort(colours.begin(), colours.end(),
            [](Rgb a, Rgb b) { return squaredDistance(a, {}) < squaredDistance(b, {}); });
  return colours;
}

Palette choosePalette(const TruePicture &picture, int colourCount) {
  const std::vector<Rgb> colours = chooseColours(picture, colourCount);
  Palette palette{};
  for (std::size_t i = 0; i < colours.size(); ++i) {
    palette[i] = {static_cast<std::uint8_t>((colours[i].red * 7 + 127) / 255),
                  static_cast<std::uint8_t>((colours[i].green * 7 + 127) / 255),
                  static_cast<std::uint8_t>((colours[i].blue * 7 + 127) / 255)};
  }
  return palette;
}

IndexedPicture diffuseToColours(const TruePicture &picture, const std::vector<Rgb> &colours) {
  IndexedPicture reduced = blankPicture(picture.width, picture.height, 0);
  diffuseErrors(picture, [&](std::size_t position, Rgb wanted) {
    const std::size_t index = nearestOf(colours, wanted);
    reduced.indexes[position] = static_cast<std::uint8_t>(index);
    return colours[index];
  });
  return reduced;
}

IndexedPicture diffuseToPalette(const TruePicture &picture, const ColourWords &colours, int colourCount) {
  std::vector<Rgb> available;
  available.reserve(static_cast<std::size_t>(colourCount));
  for (int i = 0; i < colourCount; ++i) {
    available.push_back(rgbOfWord(colours[static_cast<std::size_t>(i)]));
  }
  return diffuseToColours(picture, available);
}

IndexedPicture orderToPalette(const TruePicture &picture, const ColourWords &colours, int colourCount) {
  struct Pair {
    bool known = false;
    std::uint8_t first = 0, second = 0;
    int share = 0;
  };
  std::vector<Pair> pairs(64 * 64 * 64);
  IndexedPicture reduced = blankPicture(picture.width, picture.height, 0);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const auto position = static_cast<std::size_t>(y * picture.width + x);
      const Rgb pixel = picture.pixels[position];
      Pair &pair = pairs[static_cast<std::size_t>(pixel.red / 4 * 4096 + pixel.green / 4 * 64 + pixel.blue / 4)];
      int best = -1;
      for (int first = 0; first < colourCount && !pair.known; ++first) {
        for (int second = first; second < colourCount; ++second) {
          const Mixture mixture = mixtureOf(rgbOfWord(colours[static_cast<std::size_t>(first)]),
                                            rgbOfWord(colours[static_cast<std::size_t>(second)]), pixel);
          if (best >= 0 && mixture.cost >= best) continue;
          best = mixture.cost;
          pair.first = static_cast<std::uint8_t>(first);
          pair.second = static_cast<std::uint8_t>(second);
          pair.share = mixture.share;
        }
      }
      pair.known = true;
      reduced.indexes[position] = orderedThreshold(x, y) < pair.share ? pair.second : pair.first;
    }
  }
  return reduced;
}

IndexedPicture orderToPatternLines(const TruePicture &picture, const ColourWords &colours) {
  IndexedPicture reduced = blankPicture(picture.width, picture.height, 0);
  for (int position = 0; position < picture.width * picture.height; position += 8) {
    const Rgb *pixels = picture.pixels.data() + position;
    std::size_t bestFirst = 0, bestSecond = 0;
    int best = -1;
    for (std::size_t first = 0; first < 16; ++first) {
      for (std::size_t second = first; second < 16; ++second) {
        int cost = 0;
        for (int i = 0; i < 8 && (best < 0 || cost < best); ++i) {
          cost += mixtureOf(rgbOfWord(colours[first]), rgbOfWord(colours[second]), pixels[i]).cost;
        }
        if (best >= 0 && cost >= best) continue;
        best = cost;
        bestFirst = first;
        bestSecond = second;
      }
    }
    for (int i = 0; i < 8; ++i) {
      const int x = position % picture.width + i, y = position / picture.width;
      const Mixture mixture = mixtureOf(rgbOfWord(colours[bestFirst]), rgbOfWord(colours[bestSecond]), pixels[i]);
      reduced.indexes[static_cast<std::size_t>(position + i)] =
          static_cast<std::uint8_t>(orderedThreshold(x, y) < mixture.share ? bestSecond : bestFirst);
    }
  }
  return reduced;
}

TruePicture tinted(const TruePicture &picture, Rgb dark, Rgb light) {
  TruePicture result = picture;
  for (Rgb &pixel : result.pixels) {
    const int brightness = (3 * pixel.red + 5 * pixel.green + 2 * pixel.blue) / 10;
    pixel = {dark.red + (light.red - dark.red) * brightness / 255,
             dark.green + (light.green - dark.green) * brightness / 255,
             dark.blue + (light.blue - dark.blue) * brightness / 255};
  }
  return result;
}

} // namespace samples
