#include "screens/byte_pixels.h"

#include "core/palette.h"

#include <algorithm>
#include <array>

// A group of four bytes, as the V9958 reads them:
//   byte 0   Y of pixel 0 (bits 7-3)   low bits of K (bits 2-0)
//   byte 1   Y of pixel 1              high bits of K
//   byte 2   Y of pixel 2              low bits of J
//   byte 3   Y of pixel 3              high bits of J
// J and K are numbers of 6 bits, -32 to 31. Red is Y + J, green Y + K, blue 5Y/4 - J/2 - K/4, each held within
// 0 to 31 and shown as 8 times its value. Blue is kept exact to its quarters: 8 times blue is 10Y - 4J - 2K.

namespace {

constexpr size_t kGroupPixels = 4;
constexpr int32_t kMostLevel = 31;
constexpr int32_t kLevelStep = 8;

// Red and green end at 252, blue at 255: intended.
constexpr std::array<uint32_t, 256> kGrb332Colours = []() {
  std::array<uint32_t, 256> colours{};
  for (uint32_t byte = 0; byte < colours.size(); ++byte) {
    colours[byte] = packColour((byte & 0x1C) * 9, (byte & 0xE0) * 9 / 8, (byte & 0x03) * 85);
  }
  return colours;
}();

constexpr int32_t signedChroma(uint8_t low, uint8_t high) {
  const int32_t value = (low & 7) | (high & 7) << 3;
  return value > kMostLevel ? value - 64 : value;
}

// One group's part of the colour sums; the pixel's own Y is added for each pixel.
struct GroupColour {
  int32_t red;        // J
  int32_t second;     // K: green, in YUV blue
  int32_t blueEighth; // -4J - 2K: eight times the third sum
};

constexpr GroupColour groupColour(const uint8_t *group) {
  const int32_t k = signedChroma(group[0], group[1]);
  const int32_t j = signedChroma(group[2], group[3]);
  return {.red = j, .second = k, .blueEighth = -4 * j - 2 * k};
}

// 8-bit level of a 5-bit sum.
constexpr uint32_t level(int32_t sum) { return static_cast<uint32_t>(std::clamp(sum, 0, kMostLevel) * kLevelStep); }

// 8-bit level of a sum that is already eight times its value.
constexpr uint32_t levelOfEighths(int32_t sum) {
  return static_cast<uint32_t>(std::clamp(sum, 0, kMostLevel * kLevelStep));
}

struct YjkPixel {
  uint32_t operator()(const GroupColour &group, uint8_t byte) const {
    const int32_t y = byte >> 3;
    return packColour(level(y + group.red), level(y + group.second), levelOfEighths(10 * y + group.blueEighth));
  }
};

struct YuvPixel {
  uint32_t operator()(const GroupColour &group, uint8_t byte) const {
    const int32_t y = byte >> 3;
    return packColour(level(y + group.red), levelOfEighths(10 * y + group.blueEighth), level(y + group.second));
  }
};

struct YaePixel {
  const uint32_t *palette;
  uint32_t operator()(const GroupColour &group, uint8_t byte) const {
    return (byte & 8) != 0 ? palette[byte >> 4] : YjkPixel{}(group, byte);
  }
};

void drawBytes(ViewerState &viewer, const std::array<uint32_t, 256> &colours) {
  const uint8_t *source = viewer.vram.data() + viewer.vramPos;
  const size_t count = static_cast<size_t>(viewer.imageWidth) * static_cast<size_t>(viewer.imageHeight);
  for (size_t n = 0; n < count; ++n) viewer.frameBits[n] = colours[source[n]];
  viewer.vramPos += static_cast<int32_t>(count);
}

template <typename Pixel> void drawGroups(ViewerState &viewer, const Pixel &pixel) {
  const auto width = static_cast<size_t>(viewer.imageWidth);
  const auto height = static_cast<size_t>(viewer.imageHeight);
  const size_t groups = width / kGroupPixels;
  const uint8_t *source = viewer.vram.data() + viewer.vramPos;
  for (size_t y = 0; y < height; ++y) {
    uint32_t *target = viewer.frameBits.data() + y * width;
    for (size_t g = 0; g < groups; ++g, source += kGroupPixels) {
      const GroupColour group = groupColour(source);
      for (size_t i = 0; i < kGroupPixels; ++i) *target++ = pixel(group, source[i]);
    }
  }
  viewer.vramPos += static_cast<int32_t>(groups * kGroupPixels * height);
}

} // namespace

void RenderBytePixels(ViewerState &viewer) {
  if (viewer.imageWidth <= 0 || viewer.imageHeight <= 0 || viewer.vramPos < 0) return;
  const size_t pixels = static_cast<size_t>(viewer.imageWidth) * static_cast<size_t>(viewer.imageHeight);
  const auto start = static_cast<size_t>(viewer.vramPos);
  if (start > viewer.vram.size() || pixels > viewer.vram.size() - start || pixels > viewer.frameBits.size()) return;

  switch (viewer.colourMode) {
  case ColourModePalette: drawBytes(viewer, viewer.palette); break;
  case ColourModeGrb332: drawBytes(viewer, kGrb332Colours); break;
  case ColourModeYjk: drawGroups(viewer, YjkPixel{}); break;
  case ColourModeYuv: drawGroups(viewer, YuvPixel{}); break;
  case ColourModeYae: drawGroups(viewer, YaePixel{viewer.palette.data()}); break;
  default: break;
  }
}
