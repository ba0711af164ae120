#include "formats/g9b_stream.h"
#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string_view>
#include <tuple>

namespace {

struct G9bBuilder {
  std::string_view magic = "G9B";
  int headerLength = 11;
  uint8_t bitsPerPixel = 8;
  uint8_t colourMode = 0x40;
  uint8_t colourCount = 0;
  int width = 2;
  int height = 1;
  uint8_t compression = 0;
  Bytes behind = {}; // palette and pixels

  Bytes build() const {
    return joined({Bytes(magic.begin(), magic.end()),
                   word(headerLength),
                   {bitsPerPixel, colourMode, colourCount},
                   word(width),
                   word(height),
                   {compression},
                   Bytes(3, 0xEE),
                   behind});
  }
};

TEST(G9b, HeaderChecks) {
  using Row = std::tuple<const char *, G9bBuilder, bool, bool>; // description stored, loads
  for (const auto &[name, header, stored, loads] :
       {Row{"stored", {}, true, true}, Row{"packed", {.compression = 1}, true, true},
        Row{"first letter", {.magic = "g9B"}, false, false}, Row{"length 10", {.headerLength = 10}, false, false},
        Row{"compression 2", {.compression = 2}, true, false},
        Row{"no width", {.width = 0, .height = 65535}, true, true},
        Row{"no height", {.width = 65535, .height = 0}, true, true}}) {
    SCOPED_TRACE(name);
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    const std::string before = pictureText(viewer);
    window.open("x.G9B", header.build());
    EXPECT_EQ(viewer.window.Label4, loads ? "" : errorLine(".G9B"));
    EXPECT_EQ(viewer.pictureShown, toFlag(loads));
    EXPECT_EQ(pictureText(viewer) == before, !stored);
    if (!stored) continue;
    EXPECT_EQ(viewer.bitsPerPixel, header.bitsPerPixel);
    EXPECT_EQ(viewer.colourMode, header.colourMode);
    EXPECT_EQ(viewer.colourCount, header.colourCount);
    EXPECT_EQ(viewer.imageWidth, header.width);
    EXPECT_EQ(viewer.imageHeight, header.height);
    EXPECT_EQ(viewer.isPacked, loads ? toFlag(header.compression == 1) : 1);
    EXPECT_EQ(viewer.hasPalette, loads ? kFalse : 1);
    EXPECT_EQ(viewer.spriteMode, 1);
    EXPECT_EQ(viewer.window.Label3, loads ? "256 colors" : "old colors");
  }
}

TEST(G9b, ColourTextOfOneBit) {
  using Row = std::pair<uint8_t, const char *>; // palette entries
  for (const auto &[colourCount, text] : {Row{0, "old colors"}, Row{2, "2 colors"}, Row{16, "16 colors"}}) {
    UsedViewer window;
    window.open("x.G9B", G9bBuilder{.bitsPerPixel = 1, .colourCount = colourCount}.build());
    EXPECT_EQ(window.viewer.window.Label3, text) << int{colourCount};
    EXPECT_EQ(window.viewer.pictureShown, kTrue);
  }
}

TEST(G9b, PaletteCounts) {
  for (const int count : {0, 1, 2, 3, 4, 5, 16, 17, 64, 65, 255}) {
    for (const uint8_t compression : {uint8_t{0}, uint8_t{1}}) {
      SCOPED_TRACE(testing::Message() << count << " entries, compression " << int{compression});
      const bool stored = count == 2 || count == 4 || count == 16 || count == 64;
      Bytes behind;
      for (int i = 0; stored && i < count; ++i) {
        behind = joined({behind, {static_cast<uint8_t>(i % 32), static_cast<uint8_t>((i + 9) % 32), 31}});
      }
      const Bytes packed = joined({{1}, G9bStream{}.block().literals({0x1C, 0xE0}).end().bytes});
      behind = joined({behind, compression == 1 ? packed : Bytes{0x1C, 0xE0}});
      UsedViewer window;
      const ViewerState &viewer = window.viewer;
      const auto colourCount = static_cast<uint8_t>(count);
      window.open("x.G9B",
                  G9bBuilder{.colourCount = colourCount, .compression = compression, .behind = behind}.build());
      EXPECT_EQ(viewer.hasPalette, stored ? kTrue : count == 0 ? kFalse : 1);
      EXPECT_EQ(viewer.paletteFilePos, stored ? 17 + 3 * count : 0);
      const auto level = [](int value) { return static_cast<uint32_t>(std::floor(value * 255 / 31.0)); };
      for (int i = 0; i < 256; ++i) {
        const uint32_t own = level(i % 32) * 65536 + level((i + 9) % 32) * 256 + 255;
        EXPECT_EQ(viewer.palette[static_cast<size_t>(i)], stored && i < count ? own : kOldColour) << i;
      }
      EXPECT_EQ(viewer.frameBits, (std::vector<uint32_t>{0xFC0000, 0x00FC00}));
    }
  }
}

TEST(G9b, EveryDepth) {
  using Row = std::tuple<uint8_t, uint8_t, int, Bytes, std::vector<uint32_t>, const char *>;
  const Bytes entries{0, 0, 0, 31, 0, 0, 0, 31, 0, 1, 16, 30};
  const uint32_t red = 0xFF0000, green = 0x00FF00, dim = 0x0883F6, yjk = 0x00F8E2, yuv = 0x00E2F8;
  const Bytes group{0x87, 0x83, 0x80, 0x84, 0, 0, 0, 0};
  for (const auto &[bits, mode, width, pixels, expected, Label3] :
       {Row{2, 0, 4, {0x1B, 0xE4}, {0, red, green, dim, dim, green, red, 0}, "4 colors"},
        Row{2, 0, 5, {0x1B, 0xE4}, {0, red, green, dim, 0, dim, green, red, 0, 0}, "4 colors"},
        Row{4, 0, 3, {0x12, 0x31}, {red, green, 0, dim, red, 0}, "16 colors"},
        Row{8, 0, 2, {3, 2, 1, 0}, {dim, green, red, 0}, "64 colors"},
        Row{8, 0x80, 4, group, {yjk, yjk, yjk, yjk, 0, 0, 0, 0}, "YJK colors"},
        Row{8, 0xC0, 4, group, {yuv, yuv, yuv, yuv, 0, 0, 0, 0}, "YUV colors"},
        Row{16, 0, 2, {0xFF, 0x7F, 0xE0, 0x03, 0, 0x7C, 0, 0x80}, {0xF8F8F8, 0xF80000, 0xF800, 0}, "32K colors"}}) {
    SCOPED_TRACE(testing::Message() << int{bits} << " bits, mode " << int{mode} << ", width " << width);
    UsedViewer window;
    G9bBuilder picture{.bitsPerPixel = bits, .colourMode = mode, .colourCount = 4, .width = width, .height = 2};
    picture.behind = joined({entries, pixels});
    window.open("x.G9B", picture.build());
    EXPECT_EQ(window.viewer.frameBits, expected);
    EXPECT_EQ(window.viewer.window.Label3, Label3);
  }
}

TEST(G9b, EveryPixelOf16Bits) {
  Bytes pixels;
  for (int value = 0; value < 65536; ++value) {
    pixels.push_back(static_cast<uint8_t>(value));
    pixels.push_back(static_cast<uint8_t>(value >> 8));
  }
  TestViewer window;
  window.open("x.G9B", G9bBuilder{.bitsPerPixel = 16, .width = 256, .height = 256, .behind = pixels}.build());
  for (uint32_t value = 0; value < 65536; ++value) {
    const uint32_t green = value >> 10 & 31, red = value >> 5 & 31, blue = value & 31;
    ASSERT_EQ(window.viewer.frameBits[value], red * 8 << 16 | green * 8 << 8 | blue * 8) << value;
  }
}

TEST(G9b, LargestPicture) {
  using Row = std::tuple<int, int, bool>;
  for (const auto &[width, height, loads] : {Row{8000, 8000, true}, Row{8001, 8000, false}, Row{65535, 65535, false}}) {
    UsedViewer window;
    window.open("x.G9B", G9bBuilder{.bitsPerPixel = 0, .width = width, .height = height}.build());
    EXPECT_EQ(window.viewer.window.Label4, loads ? "" : errorLine(".G9B")) << width << "x" << height;
    EXPECT_EQ(window.viewer.frameBits.size(), loads ? 64000000u : 0u) << width << "x" << height;
  }
}

TEST(G9b, BodiesLargerThanVideoMemory) {
  const G9bBuilder stored{
      .width = 1025, .height = 1024, .behind = withBytesAt(Bytes(1025 * 1024), 1025 * 1024 - 1, {3})};
  G9bStream stream;
  stream.block().literals({0}).copy(65536, 0).end();
  for (int block = 1; block < 16; ++block) stream.block().copy(65536, 0).end(); // 1 + 16 x 65536 bytes
  stream.block().copy(1022, 2047).literals({3}).end();
  const G9bBuilder packed{.width = 1025, .height = 1024, .compression = 1, .behind = joined({{17}, stream.bytes})};
  for (const G9bBuilder &picture : {stored, packed}) {
    TestViewer window;
    window.open("x.G9B", picture.build());
    EXPECT_GE(window.viewer.vram.size(), 1025u * 1024);
    EXPECT_EQ(window.viewer.frameBits[1024 * 1024 - 1], 0u);
    EXPECT_EQ(window.viewer.frameBits[picture.compression == 0 ? 1025 * 1024 - 1 : 1024 * 1024 + 1023], 0x0000FFu);
    window.open("x.SC8", BloadBuilder{}.build());
    EXPECT_EQ(window.viewer.window.Label4, "");
  }
}

TEST(G9b, TheWindowLivesAfterEveryBlock) {
  const Bytes blocks = G9bStream{}.block().literals({0x1C}).end().block().copy(2, 0).end().bytes;
  UsedViewer window;
  for (int i = 0; i < 10; ++i) window.platform.events.push_back({[](ViewerState &, auto) {}, {}});
  window.open("x.G9B", G9bBuilder{.width = 3, .compression = 1, .behind = joined({{2}, blocks})}.build());
  EXPECT_EQ(window.viewer.frameBits, std::vector<uint32_t>(3, 0xFC0000));
  EXPECT_EQ(window.platform.events.size(), 10u - 2 - 1); // and once to show
}

} // namespace
