#include "shading.h"

#include <algorithm>
#include <bit>

namespace samples {

Colour gradient(std::initializer_list<ColourStop> stops, double position) {
  const ColourStop *previous = stops.begin();
  for (const ColourStop &stop : stops) {
    if (position < stop.position) {
      const double width = stop.position - previous->position;
      const double share = width > 0 ? (position - previous->position) / width : 0;
      return mix(previous->colour, stop.colour, std::max(share, 0.0));
    }
    previous = &stop;
  }
  return previous->colour;
}

Colour hueColour(double hue) {
  const double sixth = fractionOf(hue) * 6;
  return {std::clamp(std::abs(sixth - 3) - 1, 0.0, 1.0), std::clamp(2 - std::abs(sixth - 2), 0.0, 1.0),
          std::clamp(2 - std::abs(sixth - 4), 0.0, 1.0)};
}

double squareRoot(double value) {
  if (value <= 0) return 0;
  // Half the exponent as a start, then Newton's rule; four rounds settle all bits that matter.
  double root = std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) / 2 + std::bit_cast<std::uint64_t>(1.0) / 2);
  for (int round = 0; round < 4; ++round) root = (root + value / root) / 2;
  return root;
}

double sineOfTurns(double turns) {
  const double half = (fractionOf(turns + 0.5) - 0.5) * 2; // -1..1
  const double arc = 4 * half * (1 - std::abs(half));
  return arc * (0.775 + 0.225 * std::abs(arc));
}

double turnsOf(double x, double y) {
  const double across = std::abs(x), up = std::abs(y);
  const double larger = std::max(across, up);
  if (larger <= 0) return 0;
  const double slope = std::min(across, up) / larger;
  double turns = slope * (0.159 - 0.0517 * slope * slope + 0.0177 * slope * slope * slope * slope);
  if (up > across) turns = 0.25 - turns;
  if (x < 0) turns = 0.5 - turns;
  return y < 0 ? 1 - turns : turns;
}

double binaryLogarithm(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const double exponent = static_cast<double>(bits >> 52) - 1023;
  const double fraction = std::bit_cast<double>((bits & 0xFFFFFFFFFFFFFu) | std::bit_cast<std::uint64_t>(1.0)) - 1;
  return exponent + fraction * (1.4249 - fraction * (0.5822 - fraction * 0.1573));
}

double smoothStep(double from, double to, double value) {
  const double share = std::clamp((value - from) / (to - from), 0.0, 1.0);
  return share * share * (3 - 2 * share);
}

double lengthOf(double x, double y) { return squareRoot(x * x + y * y); }

double scatter(int x, int y, std::uint32_t seed) {
  std::uint32_t hash =
      static_cast<std::uint32_t>(x) * 0x9E3779B1u ^ static_cast<std::uint32_t>(y) * 0x85EBCA77u ^ seed * 0xC2B2AE3Du;
  hash = (hash ^ hash >> 15) * 0x2C1B3C6Du;
  hash = (hash ^ hash >> 12) * 0x297A2D39u;
  return (hash ^ hash >> 15) / 4294967296.0;
}

double smoothNoise(double x, double y, std::uint32_t seed) {
  const int left = floorToInt(x), top = floorToInt(y);
  const double u = x - left, v = y - top;
  const double shareX = u * u * (3 - 2 * u), shareY = v * v * (3 - 2 * v);
  const double upper = scatter(left, top, seed) * (1 - shareX) + scatter(left + 1, top, seed) * shareX;
  const double lower = scatter(left, top + 1, seed) * (1 - shareX) + scatter(left + 1, top + 1, seed) * shareX;
  return upper * (1 - shareY) + lower * shareY;
}

double layeredNoise(double x, double y, int octaves, std::uint32_t seed) {
  double sum = 0, amplitude = 0.5, total = 0;
  for (int octave = 0; octave < octaves; ++octave) {
    sum += amplitude * smoothNoise(x, y, seed + static_cast<std::uint32_t>(octave));
    total += amplitude;
    amplitude /= 2;
    x *= 2;
    y *= 2;
  }
  return sum / total;
}

Rgb rgbOfColour(Colour colour) {
  const auto channel = [](double value) { return floorToInt(std::clamp(value, 0.0, 1.0) * 255 + 0.5); };
  return {channel(colour.red), channel(colour.green), channel(colour.blue)};
}

} // namespace samples
