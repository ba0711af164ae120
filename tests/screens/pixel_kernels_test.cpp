#include "pixels/pixel_kernels.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <vector>

namespace {

constexpr std::array<uint32_t, 16> kPalette = {0x01000000, 0x01FFFFFF, 0x01010203, 0x01000003, 0x01804020, 0x01112233,
                                               0x01445566, 0x01778899, 0x01AABBCC, 0x01DDEEFF, 0x01FEFFFF, 0x017F8081,
                                               0x01FF0000, 0x0100FF00, 0x010000FF, 0x01000001};

// Every byte beside every other.
std::vector<uint8_t> allPairs() {
  std::vector<uint8_t> bytes;
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      bytes.push_back(static_cast<uint8_t>(first));
      bytes.push_back(static_cast<uint8_t>(second));
    }
  }
  return bytes;
}

// Every pair of J and K, with every Y at every place of the group; a Y that is odd has the attribute bit.
std::vector<uint8_t> allGroups() {
  std::vector<uint8_t> bytes;
  for (int chroma = 0; chroma < 4096; ++chroma) {
    for (int y = 0; y < 32; ++y) {
      const int lowest[] = {chroma & 7, chroma >> 3 & 7, chroma >> 6 & 7, chroma >> 9 & 7};
      for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<uint8_t>((y + 8 * i) % 32 << 3 | lowest[i]));
    }
  }
  return bytes;
}

// Those of some processors only.
class WideKernels : public testing::TestWithParam<const PixelKernels *(*)()> {
protected:
  void SetUp() override {
    if (wide == nullptr) GTEST_SKIP() << "this processor has none";
  }

  const PixelKernels &plain = plainPixelKernels();
  const PixelKernels *const wide = GetParam()();
};

INSTANTIATE_TEST_SUITE_P(PixelKernels, WideKernels, testing::Values(widePixelKernels, widestPixelKernels));

TEST_P(WideKernels, DrawWhatPlainOnesDraw) {
  const auto expectSame = [](size_t pixels, const auto &drawPlain, const auto &drawWide) {
    constexpr uint32_t kUntouched = 0xABCDEF01;
    std::vector<uint32_t> expected(pixels + 32, kUntouched);
    std::vector<uint32_t> drawn = expected;
    drawPlain(expected.data());
    drawWide(drawn.data());
    EXPECT_TRUE(drawn == expected) << pixels;
  };
  const std::vector<uint8_t> pairs = allPairs();
  const std::vector<uint8_t> groups = allGroups();
  for (size_t left = 0; left < 40; ++left) { // blocks that are not whole, and all
    const size_t bytes = left == 0 ? pairs.size() : left;
    for (const auto &[kernel, each, colours] : {std::tuple{&PixelKernels::nibbles, size_t{2}, kPalette.data()},
                                                {&PixelKernels::crumbs, size_t{4}, kPalette.data()},
                                                {&PixelKernels::grb332, size_t{1}, kGrb332Colours.data()}}) {
      expectSame(
          bytes * each, [&, k = kernel, c = colours](uint32_t *to) { (plain.*k)(pairs.data(), bytes, c, to); },
          [&, k = kernel, c = colours](uint32_t *to) { (wide->*k)(pairs.data(), bytes, c, to); });
    }
    const size_t groupCount = left == 0 ? groups.size() / 4 : left;
    for (const auto kernel : {&PixelKernels::yjk, &PixelKernels::yuv}) {
      expectSame(
          groupCount * 4, [&](uint32_t *to) { (plain.*kernel)(groups.data(), groupCount, to); },
          [&](uint32_t *to) { (wide->*kernel)(groups.data(), groupCount, to); });
    }
    expectSame(
        groupCount * 4, [&](uint32_t *to) { plain.yae(groups.data(), groupCount, kPalette.data(), to); },
        [&](uint32_t *to) { wide->yae(groups.data(), groupCount, kPalette.data(), to); });
  }
}

TEST(PixelKernels, BytesOfWordsAreBlueGreenRed) {
  std::vector<uint32_t> words;
  for (uint32_t n = 0; n < 60; ++n) words.push_back(n * 0x0A0705 + 0x80C0E0);
  for (const PixelKernels *kernels : {&plainPixelKernels(), &pixelKernels()}) {
    for (size_t count = 0; count <= words.size(); ++count) {
      std::vector<uint8_t> expected;
      for (size_t n = 0; n < count; ++n) {
        expected.push_back(static_cast<uint8_t>(words[n] % 256));
        expected.push_back(static_cast<uint8_t>(words[n] / 256 % 256));
        expected.push_back(static_cast<uint8_t>(words[n] / 65536 % 256));
      }
      expected.resize(expected.size() + 32, 0xEE);
      std::vector<uint8_t> stored(expected.size(), 0xEE);
      kernels->bytesOfWords(words.data(), count, stored.data());
      EXPECT_EQ(stored, expected) << count;
    }
  }
}

TEST_P(WideKernels, DrawCellsAsPlainOnesDo) {
  constexpr size_t kMostCells = 9;
  constexpr size_t kLine = kMostCells * 8 + 3;
  for (int first = 0; first < 256; ++first) {
    std::array<std::array<uint8_t, 8>, kMostCells> bits{};
    std::array<std::array<uint8_t, 8>, kMostCells> colours{};
    std::array<PatternCell, kMostCells> cells{};
    for (size_t cell = 0; cell < kMostCells; ++cell) {
      for (size_t i = 0; i < 8; ++i) {
        bits[cell][i] = static_cast<uint8_t>(static_cast<size_t>(first) + 31 * i + 57 * cell);
        colours[cell][i] = static_cast<uint8_t>(7 * static_cast<size_t>(first) + i + 101 * cell);
      }
      cells[cell] = {.bits = bits[cell].data(), .colours = colours[cell].data()};
    }
    const size_t count = static_cast<size_t>(first) % (kMostCells + 1);
    std::vector<uint32_t> expected(8 * kLine, 5);
    std::vector<uint32_t> drawn = expected;
    plain.cells(cells.data(), count, kPalette.data(), expected.data(), kLine);
    wide->cells(cells.data(), count, kPalette.data(), drawn.data(), kLine);
    EXPECT_EQ(drawn, expected) << first;
  }
}

} // namespace
