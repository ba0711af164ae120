#include "scenes.h"

#include <cmath>
#include <list>

namespace samples {

namespace {

constexpr double kHorizon = 134;
constexpr double kSunX = 168, kSunY = 112;

Colour mix(Colour a, Colour b, double share) {
  return {a.red + (b.red - a.red) * share, a.green + (b.green - a.green) * share, a.blue + (b.blue - a.blue) * share};
}

double wholeOf(double value) {
  const auto truncated = static_cast<double>(static_cast<int>(value));
  return truncated > value ? truncated - 1 : truncated;
}

double fractionOf(double value) { return value - wholeOf(value); }

// 0 below the first edge, 1 above the second, a smooth rise between.
double rise(double from, double to, double value) {
  const double share = std::clamp((value - from) / (to - from), 0.0, 1.0);
  return share * share * (3 - 2 * share);
}

// A sine of two parabolas; a turn is 1.
double sine(double turns) {
  const double half = (fractionOf(turns + 0.5) - 0.5) * 2;
  const double arc = 4 * half * (1 - std::abs(half));
  return arc * (0.775 + 0.225 * std::abs(arc));
}

// The angle of a direction, 0 to 1 once round the circle.
double turnsOf(double x, double y) {
  const double across = std::abs(x), down = std::abs(y);
  const double slope = std::min(across, down) / std::max({across, down, 1e-9});
  double turns = slope * (0.159 - 0.0517 * slope * slope + 0.0177 * slope * slope * slope * slope);
  if (down > across) turns = 0.25 - turns;
  if (x < 0) turns = 0.5 - turns;
  return y < 0 ? 1 - turns : turns;
}

Colour hueColour(double hue) {
  const double sixth = fractionOf(hue) * 6;
  return {std::clamp(std::abs(sixth - 3) - 1, 0.0, 1.0), std::clamp(2 - std::abs(sixth - 2), 0.0, 1.0),
          std::clamp(2 - std::abs(sixth - 4), 0.0, 1.0)};
}

// A fixed value 0 to 1 for a pair of whole numbers.
double scatter(double x, double y) {
  auto hash = static_cast<std::uint32_t>(static_cast<int>(x) * 7919 + static_cast<int>(y) * 104729);
  hash = (hash ^ hash >> 15) * 0x2C1B3C6Du;
  hash = (hash ^ hash >> 12) * 0x297A2D39u;
  return (hash ^ hash >> 15) / 4294967296.0;
}

double noise(double x, double y) {
  const double left = wholeOf(x), top = wholeOf(y);
  const double shareX = rise(0, 1, x - left), shareY = rise(0, 1, y - top);
  const double upper = scatter(left, top) * (1 - shareX) + scatter(left + 1, top) * shareX;
  const double lower = scatter(left, top + 1) * (1 - shareX) + scatter(left + 1, top + 1) * shareX;
  return upper * (1 - shareY) + lower * shareY;
}

// Three octaves, 0 to 1.
double roughness(double x, double y) {
  return (4 * noise(x, y) + 2 * noise(2 * x + 31, 2 * y) + noise(4 * x + 57, 4 * y)) / 7;
}

// Dusk: violet above, then red, orange and yellow down to the horizon.
Colour sky(double x, double y) {
  constexpr std::array<Colour, 5> kStops = {
      {{0.10, 0.12, 0.38}, {0.36, 0.22, 0.56}, {0.80, 0.36, 0.48}, {1.0, 0.62, 0.30}, {1.0, 0.88, 0.48}}};
  const double place = std::clamp(y / kHorizon, 0.0, 0.999) * (kStops.size() - 1);
  const auto stop = static_cast<std::size_t>(place);
  Colour colour = mix(kStops[stop], kStops[stop + 1], place - wholeOf(place));
  const double clouds = y < 120 ? roughness(x / 46, y / 11) : 0;
  colour = mix(colour, {0.98, 0.58, 0.50}, 0.7 * rise(0.52, 0.78, clouds) * rise(120, 70, y));
  const double fromSun = std::sqrt((x - kSunX) * (x - kSunX) + (y - kSunY) * (y - kSunY));
  colour = mix(colour, {1.0, 0.86, 0.50}, 0.6 * rise(75, 10, fromSun));
  return mix(colour, {1.0, 0.98, 0.78}, rise(15.8, 14.6, fromSun));
}

// The sky upside down, darker towards the shore, and the path of light below the sun.
Colour sea(double x, double y) {
  const double depth = (y - kHorizon) / (212 - kHorizon);
  const double wave = sine(roughness(x / (14 + 60 * depth), 90 / (depth + 0.16)) * 3);
  const Colour mirrored = sky(x + 3 * wave, kHorizon - (y - kHorizon) * 1.4);
  const Colour water = mix(mirrored, {0.05, 0.18, 0.42}, 0.45 + 0.3 * depth + 0.08 * wave);
  const double path = rise(10 + 34 * depth, 2, std::abs(x - kSunX));
  return mix(water, {1.0, 0.88, 0.55}, path * rise(-0.2, 0.7, wave) * 0.9);
}

struct Known {
  Scene scene;
  TruePicture picture;
};

// Everything that was rendered; the pictures stay where they are.
std::list<Known> &gallery() {
  static std::list<Known> all;
  return all;
}

} // namespace

Colour coast(double x, double y) {
  if (y < kHorizon) {
    Colour colour = sky(x, y);
    if (y < 40) return colour; // above all hills
    const double far = kHorizon - 36 * roughness(x / 52, 3) * rise(165, 90, x);
    colour = mix(colour, {0.42, 0.24, 0.44}, rise(far - 0.6, far + 0.6, y));
    const double near = kHorizon - 74 * rise(112, 0, x) * (0.6 + 0.6 * roughness(x / 30, 9));
    const Colour slope = mix({0.28, 0.16, 0.34}, {0.16, 0.20, 0.26}, rise(90, 140, y));
    return mix(colour, slope, rise(near - 0.6, near + 0.6, y));
  }
  const double shore = 206 - 46 * rise(40, 256, x) * rise(60, 250, x) - 5 * roughness(x / 18, 5);
  if (y < shore - 0.6) return sea(x, y);
  const Colour grass = mix({0.10, 0.22, 0.16}, {0.02, 0.05, 0.07}, rise(shore, shore + 40, y + 8 * noise(x / 3, y)));
  return mix(sea(x, y), grass, rise(shore - 0.6, shore + 0.6, y));
}

Colour hueWheel(double x, double y) {
  const double across = x - 128, down = y - 106;
  const double radius = std::sqrt(across * across + down * down);
  const Colour hue = hueColour(turnsOf(across, down));
  Colour disc = mix({1, 1, 1}, hue, rise(0, 70, radius));
  disc = mix(disc, {0, 0, 0}, 0.85 * rise(62, 100, radius));
  const Colour ground = mix({0.30, 0.30, 0.36}, {0.08, 0.08, 0.12}, rise(60, 165, radius));
  const Colour rim = mix(ground, {0.9, 0.9, 0.9}, rise(103, 101.5, radius));
  return mix(rim, disc, rise(98.5, 97, radius));
}

Colour plasma(double x, double y) {
  const double fromMiddle = std::sqrt((x - 90) * (x - 90) + (y - 150) * (y - 150));
  const double sum =
      sine(x / 190) + sine(y / 130 + 0.2 * sine(x / 160)) + sine((x + y) / 260) + 0.9 * sine(fromMiddle / 120);
  const double light = 0.5 + 0.5 * sine(sum * 0.45 + 0.3);
  const Colour hue = hueColour(0.62 + sum * 0.17);
  return light < 0.5 ? mix({0.10, 0.02, 0.25}, hue, 0.35 + 1.3 * light) : mix(hue, {1, 1, 1}, (light - 0.5) * 0.9);
}

const TruePicture &rendered(Scene scene, int width, int height) {
  for (const Known &known : gallery()) {
    if (known.scene == scene && known.picture.width == width && known.picture.height == height) return known.picture;
  }
  Known &known = gallery().emplace_back(Known{scene, {width, height}});
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Colour colour = scene((x + 0.5) * 256 / width, (y + 0.5) * 212 / height);
      const auto level = [](double share) { return static_cast<int>(std::clamp(share, 0.0, 1.0) * 255 + 0.5); };
      known.picture.at(x, y) = {level(colour.red), level(colour.green), level(colour.blue)};
    }
  }
  return known.picture;
}

} // namespace samples
