#include "core/image_info.h"
#include "screens/picture_bytes.h"

namespace {

Bytes picture(uint8_t bits, uint8_t mode, uint8_t colours, int width, int height, const Bytes &behind = {}) {
  return joined({{'G', '9', 'B', 11, 0, bits, mode, colours}, word(width), word(height), {0, 1, 2, 3}, behind});
}

// One block of literals, eight behind each byte of bits.
Bytes packed(const Bytes &bytes) {
  Bytes block{1, 9, 9};
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (i % 8 == 0) block.push_back(0);
    block.push_back(bytes[i]);
  }
  return block;
}

TEST(G9b, EveryDepth) {
  using Row = std::tuple<uint8_t, uint8_t, int, Bytes, std::vector<uint32_t>, const char *>;
  const Bytes entries{0, 0, 0, 31, 0, 0, 0, 31, 0, 1, 16, 30 | 0xE0}; // five bits of each
  const uint32_t red = 0xFF0000, green = 0x00FF00, dim = 0x0883F6, yjk = 0x00F8E2, yuv = 0x00E2F8;
  const Bytes group{0x87, 0x83, 0x80, 0x84, 0, 0, 0, 0};
  for (const auto &[bits, mode, width, pixels, expected, Label3] :
       {Row{1, 0, 1, {}, {0, 0}, "old colors"},
        Row{2, 0, 5, {0x1B, 0xE4}, {0, red, green, dim, 0, dim, green, red, 0, 0}, "4 colors"},
        Row{4, 0, 3, {0x12, 0x31}, {red, green, 0, dim, red, 0}, "16 colors"},
        Row{8, 0, 2, {3, 2, 1, 0}, {dim, green, red, 0}, "64 colors"},
        Row{8, 0x40, 1, {0x1C, 0xE3}, {0xFC0000, 0x00FCFF}, "256 colors"},
        Row{8, 0x80, 4, group, {yjk, yjk, yjk, yjk, 0, 0, 0, 0}, "YJK colors"},
        Row{8, 0xC0, 4, group, {yuv, yuv, yuv, yuv, 0, 0, 0, 0}, "YUV colors"},
        Row{8, 0xFF, 4, {0x18, 0x00, 0x18, 0x00, 0, 0, 0, 0}, {red, 0, red, 0, 0, 0, 0, 0}, "YAE colors"},
        Row{16, 0, 2, {0xFF, 0x7F, 0xE0, 0x03, 0, 0x7C, 0, 0x80}, {0xF8F8F8, 0xF80000, 0xF800, 0}, "32K colors"}}) {
    for (const bool packs : {false, true}) {
      SCOPED_TRACE(testing::Message() << int{bits} << " bits, mode " << int{mode} << ", width " << width);
      const Bytes file = picture(bits, mode, 4, width, 2, joined({entries, packs ? packed(pixels) : pixels}));
      UsedViewer window;
      window.open("x.G9B", withBytesAt(file, 12, {packs}));
      EXPECT_EQ(window.viewer.frameBits, expected);
      EXPECT_EQ(window.viewer.window.Label3, Label3);
      EXPECT_EQ(window.viewer.isPacked, toFlag(packs));
      EXPECT_TRUE(imageInfo(window.viewer)
                      .ends_with(std::string("\t197,121 bytes by the header") + (packs ? ", 1 blocks\n" : "\n")));
    }
  }
}

TEST(G9b, PaletteCounts) {
  for (const size_t count : {0U, 1U, 2U, 3U, 4U, 5U, 15U, 16U, 17U, 63U, 64U, 65U, 255U}) {
    SCOPED_TRACE(count);
    const bool stored = count == 2 || count == 4 || count == 16 || count == 64;
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    const Bytes pixel{0x1C};
    window.open("x.G9B", picture(8, 0x40, static_cast<uint8_t>(count), 1, 1,
                                 joined({Bytes(stored ? 3 * count : 0, 31), pixel})));
    EXPECT_EQ(viewer.hasPalette, stored ? kTrue : count == 0 ? kFalse : 1);
    EXPECT_EQ(viewer.paletteFilePos, stored ? 17 + 3 * static_cast<int32_t>(count) : 0);
    EXPECT_EQ(std::ranges::count(viewer.palette, 0xFFFFFFU), stored ? static_cast<int>(count) : 0);
    EXPECT_EQ(viewer.frameBits[0], 0xFC0000U);
    EXPECT_EQ(imageInfo(window.viewer).find("Palette:\tyes") != std::string::npos, stored);
  }
}

TEST(G9b, BodiesLargerThanVideoMemory) {
  Bytes pixels(1025 * 1024);
  pixels.back() = 3;
  for (const bool packs : {false, true}) {
    TestViewer window;
    window.open("x.G9B", withBytesAt(picture(8, 0x40, 0, 1025, 1024, packs ? packed(pixels) : pixels), 12, {packs}));
    EXPECT_EQ(window.viewer.frameBits.back(), 0x0000FFu);
    window.open("x.SC8", BloadBuilder{}.build());
    EXPECT_EQ(window.viewer.vram.size(), kVideoMemoryBytes);
  }
}

} // namespace
