#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr uint32_t kUntouched = 0xABCDEF01;

using Bytes = std::vector<uint8_t>;
using Words = std::vector<uint32_t>;

// Of the plain ones and of the fastest: the first units, of any number that blocks leave over, and all.
template <typename Item, typename Draw>
void expectDrawn(const char *name, const std::vector<Item> &expected, size_t unitItems, const Draw &draw) {
  for (const PixelKernels *kernels : {&plainPixelKernels(), &pixelKernels()}) {
    for (size_t units = 0; units <= 70; ++units) {
      const size_t items = units == 70 ? expected.size() : units * unitItems;
      std::vector<Item> wanted(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(items));
      wanted.resize(items + 40, static_cast<Item>(kUntouched));
      std::vector<Item> drawn(wanted.size(), static_cast<Item>(kUntouched));
      draw(*kernels, items / unitItems, drawn.data());
      EXPECT_TRUE(drawn == wanted) << name << ", plain " << (kernels == &plainPixelKernels()) << ", " << items;
    }
  }
}

Words palette() {
  Words words;
  for (uint32_t i = 0; i < 16; ++i) words.push_back(0x01000000 + i * 0x0B1305 + 0x402010); // the same highest byte
  return words;
}

TEST(PixelKernels, EveryPackedByte) {
  const Words colours = palette();
  Bytes bytes, bgr;
  Words nibbles, crumbs, grb332;
  for (uint32_t i = 0; i < 512; ++i) {
    const auto byte = static_cast<uint8_t>(i < 256 ? i : i * 7);
    bytes.push_back(byte);
    for (const int shift : {4, 0}) nibbles.push_back(colours[byte >> shift & 15]);
    for (const int shift : {6, 4, 2, 0}) crumbs.push_back(colours[byte >> shift & 3]);
    grb332.push_back((byte >> 2 & 7) * 36U << 16 | (byte >> 5) * 36U << 8 | (byte & 3) * 85U);
    for (const int shift : {0, 8, 16}) bgr.push_back(static_cast<uint8_t>(grb332.back() >> shift));
  }
  expectDrawn("nibbles", nibbles, 2, [&](const PixelKernels &kernels, size_t units, uint32_t *to) {
    kernels.nibbles(bytes.data(), units, colours.data(), to);
  });
  expectDrawn("crumbs", crumbs, 4, [&](const PixelKernels &kernels, size_t units, uint32_t *to) {
    kernels.crumbs(bytes.data(), units, colours.data(), to);
  });
  expectDrawn("grb332", grb332, 1, [&](const PixelKernels &kernels, size_t units, uint32_t *to) {
    kernels.grb332(bytes.data(), units, kGrb332Colours.data(), to);
  });
  for (uint32_t &word : grb332) word += 0x7E000000; // left out
  expectDrawn("bytes", bgr, 3, [&](const PixelKernels &kernels, size_t units, uint8_t *to) {
    kernels.bgrBytes(grb332.data(), units, to);
  });
}

// A level in real numbers, shown as 8 times its value.
uint32_t channel(double level) { return static_cast<uint32_t>(std::lround(std::clamp(level, 0.0, 31.0) * 8)); }

TEST(PixelKernels, EveryYOfEveryJAndKAtEveryPlace) {
  const Words colours = palette();
  Bytes bytes;
  Words yjk, yuv, yae, video;
  for (int chroma = 0; chroma < 4096; ++chroma) {
    const int k = (chroma & 31) - (chroma & 32), j = (chroma >> 6 & 31) - (chroma >> 6 & 32);
    for (int n = 0; n < 32 * 4; ++n) {
      const int y = (n / 4 + n % 4 * 8) % 32;
      bytes.push_back(static_cast<uint8_t>(y << 3 | (chroma >> n % 4 * 3 & 7)));
      const uint32_t red = channel(y + j), second = channel(y + k);
      const double third = 1.25 * y - 0.5 * j - 0.25 * k;
      yjk.push_back(red << 16 | second << 8 | channel(third));
      yuv.push_back(red << 16 | channel(third) << 8 | second);
      video.push_back(red << 16 | second << 8 | channel(std::nearbyint(third))); // halves to the even level
      yae.push_back((bytes.back() & 8) != 0 ? colours[bytes.back() >> 4] : yjk.back());
    }
  }
  const auto groups = [&](auto kernel) {
    return [&bytes, kernel](const PixelKernels &kernels, size_t n, uint32_t *to) {
      (kernels.*kernel)(bytes.data(), n, to);
    };
  };
  expectDrawn("yjk", yjk, 4, groups(&PixelKernels::yjk));
  expectDrawn("yuv", yuv, 4, groups(&PixelKernels::yuv));
  expectDrawn("video", video, 4, groups(&PixelKernels::videoYjk));
  expectDrawn("yae", yae, 4, [&](const PixelKernels &kernels, size_t n, uint32_t *to) {
    kernels.yae(bytes.data(), n, colours.data(), to);
  });
}

TEST(PixelKernels, CellsOfAnyNumber) {
  constexpr size_t kLine = 75;
  const Words colours = palette();
  Bytes bytes; // patterns, and colours
  for (size_t i = 0; i < 512; ++i) bytes.push_back(static_cast<uint8_t>(i < 256 ? i * 37 : i * 11 + i / 16));
  for (size_t count = 0; count <= 9; ++count) {
    std::vector<PatternCell> cells;
    Words expected(8 * kLine, kUntouched);
    for (size_t n = 0; n < count; ++n) {
      cells.push_back({.bits = &bytes[n * 24], .colours = &bytes[256 + n * 24]});
      for (size_t i = 0; i < 64; ++i) {
        const bool set = (cells[n].bits[i / 8] << i % 8 & 0x80) != 0;
        expected[i / 8 * kLine + n * 8 + i % 8] = colours[cells[n].colours[i / 8] >> (set ? 4 : 0) & 15];
      }
    }
    for (const PixelKernels *kernels : {&plainPixelKernels(), &pixelKernels()}) {
      Words drawn(expected.size(), kUntouched);
      kernels->cells(cells.data(), count, colours.data(), drawn.data(), kLine);
      EXPECT_EQ(drawn, expected) << count;
    }
  }
}

} // namespace
