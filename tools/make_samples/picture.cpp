#include "picture.h"

#include <unordered_map>

namespace samples {

const Palette kDefaultPalette = {0000, 0000, 0161, 0373, 0117, 0237, 0511, 0267,
                                 0711, 0733, 0661, 0664, 0141, 0625, 0555, 0777};
const Palette kCoastPalette = {0000, 0012, 0113, 0214, 0324, 0434, 0533, 0643,
                               0642, 0752, 0763, 0334, 0112, 0121, 0223, 0775};
const Palette kWheelPalette = {0000, 0700, 0740, 0770, 0370, 0070, 0073, 0077,
                               0047, 0007, 0407, 0707, 0703, 0333, 0555, 0777};
const Palette kPlasmaPalette = {0000, 0103, 0206, 0307, 0527, 0726, 0744, 0762,
                                0773, 0572, 0263, 0055, 0036, 0137, 0467, 0777};
const Palette kAmberPalette = {0000, 0310, 0630, 0764};
const Colours kSymbosColours = {{255, 255, 145}, {0, 0, 0},       {255, 145, 0},   {145, 0, 0},
                                {0, 255, 255},   {0, 0, 145},     {145, 145, 255}, {0, 0, 255},
                                {255, 255, 255}, {0, 145, 0},     {0, 255, 0},     {255, 0, 255},
                                {255, 255, 0},   {145, 145, 145}, {255, 145, 145}, {255, 0, 0}};

namespace {

constexpr int kThresholds = 64;
constexpr std::size_t kNearest = 6; // colours that a pattern may hold

// Two colours; `share` of 64 pixels have the second one.
struct Mixture {
  std::uint8_t first = 0, second = 0;
  int share = 0;
};

int squared(Rgb difference) {
  return 3 * difference.red * difference.red + 4 * difference.green * difference.green +
         2 * difference.blue * difference.blue;
}

Rgb operator-(Rgb a, Rgb b) { return {a.red - b.red, a.green - b.green, a.blue - b.blue}; }

int product(Rgb a, Rgb b) { return 3 * a.red * b.red + 4 * a.green * b.green + 2 * a.blue * b.blue; }

// The share of `second` that comes closest to the colour.
int bestShare(Rgb wanted, Rgb first, Rgb second) {
  const int length = squared(second - first);
  if (length == 0) return 0;
  return std::clamp(product(wanted - first, second - first) / (length / kThresholds + 1), 0, kThresholds);
}

Rgb mixed(Rgb first, Rgb second, int share) {
  const Rgb span = second - first;
  return {first.red + span.red * share / kThresholds, first.green + span.green * share / kThresholds,
          first.blue + span.blue * share / kThresholds};
}

// Patterns of two colours that lie far apart look rough: they count as worse.
int costOf(Rgb wanted, Rgb first, Rgb second, int share) {
  return squared(wanted - mixed(first, second, share)) + squared(second - first) / 24;
}

Mixture bestMixture(Rgb wanted, const Colours &colours) {
  std::vector<std::uint8_t> order;
  for (std::size_t i = 0; i < colours.size(); ++i) order.push_back(static_cast<std::uint8_t>(i));
  const std::size_t count = std::min(kNearest, colours.size());
  const auto distance = [&](std::uint8_t index) { return squared(wanted - colours[index]); };
  std::partial_sort(
      order.begin(), order.begin() + static_cast<std::ptrdiff_t>(count), order.end(),
      [&](std::uint8_t a, std::uint8_t b) { return distance(a) != distance(b) ? distance(a) < distance(b) : a < b; });
  Mixture best{order[0], order[0], 0};
  int least = distance(order[0]);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i + 1; j < count; ++j) {
      const std::uint8_t first = std::min(order[i], order[j]), second = std::max(order[i], order[j]);
      const int share = bestShare(wanted, colours[first], colours[second]);
      const int cost = costOf(wanted, colours[first], colours[second], share);
      if (cost >= least) continue;
      least = cost;
      best = {first, second, share};
    }
  }
  return best;
}

std::uint8_t chosen(const Mixture &mixture, int x, int y) {
  return threshold(x, y) < mixture.share ? mixture.second : mixture.first;
}

// One of the two colours for each pixel, and how far the eight pixels are from what is wanted.
int ditherPair(std::span<const Rgb, 8> wanted, const Colours &colours, Mixture pair, int y, std::uint8_t *line) {
  int cost = 0;
  for (int x = 0; x < 8; ++x) {
    const Rgb pixel = wanted[static_cast<std::size_t>(x)], first = colours[pair.first], second = colours[pair.second];
    pair.share = bestShare(pixel, first, second);
    cost += costOf(pixel, first, second, pair.share);
    line[x] = chosen(pair, x, y);
  }
  return cost;
}

} // namespace

int threshold(int x, int y) {
  int value = 0;
  for (int bit = 0; bit < 3; ++bit) value = value * 4 + ((x ^ y) >> bit & 1) * 2 + (y >> bit & 1);
  return value;
}

Colours coloursOf(const Palette &palette, std::size_t count) {
  Colours colours;
  for (std::size_t i = 0; i < count; ++i) {
    const int levels = palette[i];
    colours.push_back({(levels >> 6) * 255 / 7, (levels >> 3 & 7) * 255 / 7, (levels & 7) * 255 / 7});
  }
  return colours;
}

TruePicture tinted(const TruePicture &picture, Rgb dark, Rgb light) {
  TruePicture result = picture;
  for (Rgb &pixel : result.pixels) {
    const int grey = (3 * pixel.red + 5 * pixel.green + 2 * pixel.blue) / 10;
    pixel = mixed(dark, light, grey * kThresholds / 255);
  }
  return result;
}

IndexedPicture dithered(const TruePicture &picture, const Colours &colours, int firstLine) {
  IndexedPicture indexes(picture.width, picture.height);
  std::unordered_map<int, Mixture> known; // by the upper five bits of each channel
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const Rgb wanted = picture.at(x, y);
      const auto [entry, isNew] =
          known.try_emplace((wanted.red >> 3) << 10 | (wanted.green >> 3) << 5 | wanted.blue >> 3);
      if (isNew) entry->second = bestMixture(wanted, colours);
      indexes.at(x, y) = chosen(entry->second, x, firstLine + y);
    }
  }
  return indexes;
}

IndexedPicture ditheredInPairs(const TruePicture &picture, const Colours &colours) {
  IndexedPicture indexes = dithered(picture, colours);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; x += 8) {
      std::uint8_t *line = &indexes.at(x, y);
      std::vector<std::uint8_t> candidates(line, line + 8);
      std::sort(candidates.begin(), candidates.end());
      candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
      const std::span<const Rgb, 8> wanted(&picture.at(x, y), 8);
      int least = -1;
      for (const std::uint8_t first : candidates) {
        for (const std::uint8_t second : candidates) {
          if (second < first) continue;
          std::array<std::uint8_t, 8> tried;
          const int cost = ditherPair(wanted, colours, {first, second, 0}, y, tried.data());
          if (least >= 0 && cost >= least) continue;
          least = cost;
          std::copy(tried.begin(), tried.end(), line);
        }
      }
    }
  }
  return indexes;
}

} // namespace samples
