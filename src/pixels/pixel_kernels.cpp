#include "pixels/pixel_kernels.h"

#include "base/colours.h"

#include <algorithm>
#include <array>
#include <cstring>

// A group of four bytes, as the V9958 reads them:
//   byte 0   Y of pixel 0 (bits 7-3)   low bits of K (bits 2-0)
//   byte 1   Y of pixel 1              high bits of K
//   byte 2   Y of pixel 2              low bits of J
//   byte 3   Y of pixel 3              high bits of J
// J and K are signed 6-bit numbers, -32 to 31. Red is Y + J, green Y + K, blue 5Y/4 - J/2 - K/4, each clamped to
// 0 to 31 and shown times 8. Blue keeps its quarters: 8 times blue is 10Y - 4J - 2K.

namespace {

constexpr int32_t kMaxLevel = 31;
constexpr int32_t kLevelStep = 8;

constexpr int32_t signedChroma(uint8_t low, uint8_t high) {
  const int32_t value = (low & 7) | (high & 7) << 3;
  return value > kMaxLevel ? value - 64 : value;
}

// The group's part of the colour sums; each pixel adds its Y.
struct GroupColour {
  int32_t red;        // J
  int32_t second;     // K: green, in YUV blue
  int32_t blueEighth; // -4J - 2K: 8 times the third sum
};

constexpr GroupColour groupColour(const uint8_t *group) {
  const int32_t k = signedChroma(group[0], group[1]);
  const int32_t j = signedChroma(group[2], group[3]);
  return {.red = j, .second = k, .blueEighth = -4 * j - 2 * k};
}

// 8-bit level of a 5-bit sum.
constexpr uint32_t level(int32_t sum) { return static_cast<uint32_t>(std::clamp(sum, 0, kMaxLevel) * kLevelStep); }

// 8-bit level of a sum times 8.
constexpr uint32_t levelOfEighths(int32_t sum) {
  return static_cast<uint32_t>(std::clamp(sum, 0, kMaxLevel * kLevelStep));
}

uint32_t yjkPixel(const GroupColour &group, uint8_t byte) {
  const int32_t y = byte >> 3;
  return packColour(level(y + group.red), level(y + group.second), levelOfEighths(10 * y + group.blueEighth));
}

uint32_t yuvPixel(const GroupColour &group, uint8_t byte) {
  const int32_t y = byte >> 3;
  return packColour(level(y + group.red), levelOfEighths(10 * y + group.blueEighth), level(y + group.second));
}

// Blue rounded to a whole level, half a level to the even one.
uint32_t videoYjkPixel(const GroupColour &group, uint8_t byte) {
  const int32_t y = byte >> 3;
  const int32_t quarters = (10 * y + group.blueEighth) / 2; // the sum is even
  const int32_t oddLevel = quarters >> 2 & 1;
  return packColour(level(y + group.red), level(y + group.second), level((quarters + 1 + oddLevel) >> 2));
}

// A table of all byte values: one look-up per byte instead of one per pixel.
template <size_t kPixels>
void drawPacked(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target) {
  constexpr size_t kMinTableBytes = 64; // below this the table costs more
  if (bytes < kMinTableBytes) {
    for (size_t n = 0; n < bytes; ++n) {
      for (size_t i = 0; i < kPixels; ++i) *target++ = palette[entryOf<kPixels>(source[n], i)];
    }
    return;
  }
  std::array<std::array<uint32_t, kPixels>, 256> table;
  for (size_t byte = 0; byte < table.size(); ++byte) {
    for (size_t i = 0; i < kPixels; ++i) table[byte][i] = palette[entryOf<kPixels>(byte, i)];
  }
  for (size_t n = 0; n < bytes; ++n, target += kPixels) std::memcpy(target, table[source[n]].data(), sizeof table[0]);
}

void drawGrb332(const uint8_t *source, size_t bytes, const uint32_t *colours, uint32_t *target) {
  for (size_t n = 0; n < bytes; ++n) target[n] = colours[source[n]];
}

template <auto kPixel> void drawGroups(const uint8_t *source, size_t groups, uint32_t *target) {
  for (size_t g = 0; g < groups; ++g, source += kGroupPixels) {
    const GroupColour group = groupColour(source);
    for (size_t i = 0; i < kGroupPixels; ++i) *target++ = kPixel(group, source[i]);
  }
}

void drawYae(const uint8_t *source, size_t groups, const uint32_t *palette, uint32_t *target) {
  drawGroups<yjkPixel>(source, groups, target);
  for (size_t n = 0; n < groups * kGroupPixels; ++n) {
    const uint32_t isEntry = 0U - (source[n] >> 3 & 1U); // all bits or none: a branch would be mispredicted
    target[n] ^= (target[n] ^ palette[source[n] >> 4]) & isEntry;
  }
}

void storeBgrBytes(const uint32_t *words, size_t count, uint8_t *target) {
  for (size_t n = 0; n < count; ++n) {
    for (const int shift : {0, 8, 16}) *target++ = static_cast<uint8_t>(words[n] >> shift);
  }
}

void drawCells(const PatternCell *cells, size_t count, const uint32_t *palette, uint32_t *target, size_t linePixels) {
  for (size_t n = 0; n < count; ++n, target += kPatternSide) {
    for (size_t line = 0; line < kPatternSide; ++line) {
      const uint8_t colours = cells[n].colours[line];
      const uint32_t twoColours[2] = {palette[colours & 0x0F], palette[colours >> 4]};
      for (size_t k = 0; k < kPatternSide; ++k) {
        target[line * linePixels + k] = twoColours[cells[n].bits[line] >> (kPatternSide - 1 - k) & 1];
      }
    }
  }
}

} // namespace

// Red and green end at 252, blue at 255: intended, levels are multiples of 36 and 85.
constexpr std::array<uint32_t, 256> kGrb332Colours = []() {
  std::array<uint32_t, 256> colours{};
  for (uint32_t byte = 0; byte < colours.size(); ++byte) {
    colours[byte] = packColour((byte & 0x1C) * 9, (byte & 0xE0) * 9 / 8, (byte & 0x03) * 85);
  }
  return colours;
}();

const PixelKernels &plainPixelKernels() {
  static constexpr PixelKernels kKernels{.nibbles = drawPacked<2>,
                                         .crumbs = drawPacked<4>,
                                         .grb332 = drawGrb332,
                                         .yjk = drawGroups<yjkPixel>,
                                         .yuv = drawGroups<yuvPixel>,
                                         .yae = drawYae,
                                         .cells = drawCells,
                                         .bgrBytes = storeBgrBytes,
                                         .videoYjk = drawGroups<videoYjkPixel>};
  return kKernels;
}

const PixelKernels &pixelKernels() {
  static const PixelKernels &fastest = avx2PixelKernels() != nullptr ? *avx2PixelKernels() : plainPixelKernels();
  return fastest;
}
