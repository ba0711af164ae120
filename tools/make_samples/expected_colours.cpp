#include "expected_colours.h"

#include <algorithm>
#include <cmath>

namespace samples {

namespace {

constexpr std::array<std::uint32_t, 8> kLevelValues = {0, 36, 73, 109, 146, 182, 219, 255};

constexpr std::uint32_t wordOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red * 65536 + green * 256 + blue;
}

// Six bits in two's complement from the low bits of two bytes.
int signedChroma(int low, int high) {
  const int value = (low & 7) + (high & 7) * 8;
  return value > 31 ? value - 64 : value;
}

double roundedToEven(double value) {
  const double below = std::floor(value), rest = value - below;
  const bool odd = std::floor(below / 2) * 2 < below;
  return rest > 0.5 || (rest >= 0.5 && odd) ? below + 1 : below;
}

std::uint32_t yjkChannel(double level) { return static_cast<std::uint32_t>(std::clamp(level, 0.0, 31.0) * 8); }

std::uint32_t yjkColour(const Bytes &bytes, std::size_t position, bool wholeBlue = false) {
  const std::size_t group = position / 4 * 4;
  const int k = signedChroma(bytes[group], bytes[group + 1]);
  const int j = signedChroma(bytes[group + 2], bytes[group + 3]);
  const int y = bytes[position] / 8;
  const double blue = 5.0 * y / 4 - j / 2.0 - k / 4.0;
  return wordOf(yjkChannel(y + j), yjkChannel(y + k), yjkChannel(wholeBlue ? roundedToEven(blue) : blue));
}

} // namespace

// The standard levels with their eighths cut off, and entry 1 apart from entry 0.
const ColourWords kDefaultColours = {
    wordOf(0, 0, 0),     wordOf(8, 8, 8),       wordOf(36, 218, 36),   wordOf(109, 255, 109),
    wordOf(36, 36, 255), wordOf(72, 109, 255),  wordOf(182, 36, 36),   wordOf(72, 218, 255),
    wordOf(255, 36, 36), wordOf(255, 109, 109), wordOf(218, 218, 36),  wordOf(218, 218, 145),
    wordOf(36, 145, 36), wordOf(218, 72, 182),  wordOf(182, 182, 182), wordOf(255, 255, 255)};

ColourWords coloursOfPalette(const Palette &palette) {
  ColourWords colours{};
  for (std::size_t i = 0; i < palette.size(); ++i) {
    colours[i] = wordOf(kLevelValues[palette[i].red], kLevelValues[palette[i].green], kLevelValues[palette[i].blue]);
  }
  return colours;
}

std::vector<std::uint32_t> shownIndexes(const Bytes &indexes, const ColourWords &colours) {
  std::vector<std::uint32_t> shown;
  for (const std::uint8_t index : indexes) shown.push_back(colours[index]);
  return shown;
}

std::vector<std::uint32_t> shownIndexes(const Bytes &indexes, const std::vector<std::uint32_t> &colours) {
  std::vector<std::uint32_t> shown;
  for (const std::uint8_t index : indexes) shown.push_back(colours[index]);
  return shown;
}

std::vector<std::uint32_t> shownGrb332(const Bytes &bytes) {
  std::vector<std::uint32_t> shown;
  for (const std::uint8_t byte : bytes) {
    const std::uint32_t green = byte / 32 * 36u, red = byte / 4 % 8 * 36u, blue = byte % 4 * 85u;
    shown.push_back(wordOf(red, green, blue));
  }
  return shown;
}

std::vector<std::uint32_t> shownYjk(const Bytes &bytes) {
  std::vector<std::uint32_t> shown;
  for (std::size_t i = 0; i < bytes.size(); ++i) shown.push_back(yjkColour(bytes, i));
  return shown;
}

std::vector<std::uint32_t> shownYae(const Bytes &bytes, const ColourWords &colours) {
  std::vector<std::uint32_t> shown;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool fromPalette = (bytes[i] & 8) != 0;
    shown.push_back(fromPalette ? colours[bytes[i] / 16] : yjkColour(bytes, i));
  }
  return shown;
}

std::vector<std::uint32_t> shownVideoYjk(const Bytes &bytes) {
  std::vector<std::uint32_t> shown;
  for (std::size_t i = 0; i < bytes.size(); ++i) shown.push_back(yjkColour(bytes, i, true));
  return shown;
}

std::vector<std::uint32_t> shownVideoRgb(const Bytes &bytes) {
  std::vector<std::uint32_t> shown;
  for (const std::uint8_t byte : bytes) shown.push_back(wordOf(byte / 4 % 8 * 32u, byte / 32 * 32u, byte % 4 * 64u));
  return shown;
}

} // namespace samples
