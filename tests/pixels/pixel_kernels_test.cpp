#include "pixels/pixel_kernels.h"

#include "support/bytes.h"

#include <gtest/gtest.h>

namespace {

using Words = std::vector<uint32_t>;

// The fastest draw what the plain ones draw: of the first units, of any number that blocks leave over, and of all.
template <typename Draw> void expectAlike(const char *name, size_t units, size_t unitPixels, const Draw &draw) {
  constexpr uint32_t kUntouched = 0xABCDEF01;
  for (size_t part = 0; part <= 70; ++part) {
    const size_t drawn = part == 70 ? units : part;
    Words plain(drawn * unitPixels + 40, kUntouched), fastest = plain;
    draw(plainPixelKernels(), drawn, plain.data());
    draw(pixelKernels(), drawn, fastest.data());
    EXPECT_TRUE(plain == fastest) << name << ", " << drawn;
    EXPECT_EQ(std::count(plain.end() - 40, plain.end(), kUntouched), 40) << name << ", " << drawn;
  }
}

TEST(PixelKernels, EveryByteAndEveryGroup) {
  EXPECT_TRUE(avx2PixelKernels() == nullptr || &pixelKernels() == avx2PixelKernels());
  Bytes bytes; // every Y at every place in a group with every J and K; thus every byte
  for (int chroma = 0; chroma < 4096; ++chroma) {
    for (int n = 0; n < 32 * 4; ++n) {
      bytes.push_back(static_cast<uint8_t>((n / 4 + n % 4 * 8) % 32 << 3 | (chroma >> n % 4 * 3 & 7)));
    }
  }
  Words palette, words; // the palette with the same highest byte
  for (uint32_t i = 0; i < 16; ++i) palette.push_back(0x01000000 + i * 0x0B1305 + 0x402010);
  for (uint32_t i = 0; i < 2000; ++i) words.push_back(0x7E000000 + i * 0x030507);
  std::vector<PatternCell> cells;
  for (size_t i = 0; i < 500; ++i) cells.push_back({.bits = &bytes[i * 998], .colours = &bytes[i * 1003 + 9]});

  const uint8_t *source = bytes.data();
  const uint32_t *colours = palette.data(), *fixed = kGrb332Colours.data();
  const size_t count = bytes.size(), groups = count / 4;
  expectAlike("nibbles", count, 2, [=](auto &kernels, auto n, auto to) { kernels.nibbles(source, n, colours, to); });
  expectAlike("crumbs", count, 4, [=](auto &kernels, auto n, auto to) { kernels.crumbs(source, n, colours, to); });
  expectAlike("fixed", count, 1, [=](auto &kernels, auto n, auto to) { kernels.grb332(source, n, fixed, to); });
  expectAlike("yjk", groups, 4, [=](auto &kernels, auto n, auto to) { kernels.yjk(source, n, to); });
  expectAlike("yuv", groups, 4, [=](auto &kernels, auto n, auto to) { kernels.yuv(source, n, to); });
  expectAlike("yae", groups, 4, [=](auto &kernels, auto n, auto to) { kernels.yae(source, n, colours, to); });
  expectAlike("video", groups, 4, [=](auto &kernels, auto n, auto to) { kernels.videoYjk(source, n, to); });
  expectAlike("bytes", words.size(), 1, [&](auto &kernels, auto n, auto to) { // of the room three quarters
    kernels.bgrBytes(words.data(), n, reinterpret_cast<uint8_t *>(to));
  });
  expectAlike("cells", cells.size(), 64,
              [&](auto &kernels, auto n, auto to) { kernels.cells(cells.data(), n, colours, to, 8 * n); });
}

} // namespace
