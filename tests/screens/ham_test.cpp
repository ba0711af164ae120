#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <span>
#include <string_view>
#include <tuple>

namespace {

constexpr size_t kPaletteBytes = 32 + 240 * 2 * 3;
constexpr size_t kPixelBytes = 240 * 256;

struct HamBuilder {
  std::string_view magic = "HAM";
  uint8_t version = 1;
  uint8_t marker = 0x20;
  uint8_t storage = 0;
  uint8_t interlace = 0;
  int width = 512;
  int height = 4;
  std::array<uint32_t, 4> offsets = {0x100, 0x800, 0x1000, 0x10000}; // even and odd palette, even and odd pixels

  Bytes build() const {
    Bytes file(magic.begin(), magic.end());
    file = joined({file, {version, marker, storage, 0xEE, interlace}, word(width), word(height), Bytes(4, 0xEE)});
    for (const uint32_t offset : offsets) {
      file = joined({file, word(static_cast<int>(offset & 0xFFFF)), word(static_cast<int>(offset >> 16))});
    }
    return file;
  }
};

uint32_t colourOf(std::span<const uint8_t> bytes) {
  const auto level = [](int stored) { return static_cast<uint32_t>(std::lround(stored * 255 / 7.0)); };
  return level(bytes[0] / 16) * 65536 + level(bytes[1] % 16) * 256 + level(bytes[0] % 16);
}

// Start colours and changes within the levels of the format; every fourth change names an entry that no pixel shows.
Bytes paletteBlock(uint32_t start) {
  Bytes block = noise(kPaletteBytes, start);
  for (size_t i = 0; i < block.size(); ++i) {
    const bool entry = i >= 32 && (i - 32) % 3 == 0;
    const bool green = i < 32 ? i % 2 == 1 : (i - 32) % 3 == 2;
    const int bits = entry ? (i % 4 == 0 ? 0xFF : 0x0F) : green ? 0x07 : 0x77;
    block[i] = static_cast<uint8_t>(block[i] & bits);
  }
  return block;
}

TEST(Ham, PixelsAndPaletteChanges) {
  const Bytes palettes[] = {paletteBlock(1), paletteBlock(2)};
  const Bytes pixels[] = {noise(kPixelBytes, 3), noise(kPixelBytes, 4)};
  using Row = std::tuple<int, uint8_t, int, size_t>; // stored height, interlace, shown height, lines of a page
  for (const auto &[stored, interlace, height, pageLines] :
       {Row{0, 0, 0, 0}, Row{1, 0, 1, 1}, Row{3, 0, 3, 1}, Row{4, 0, 4, 2}, Row{5, 0, 5, 3}, Row{7, 0, 7, 3},
        Row{211, 0, 211, 105}, Row{212, 0, 212, 106}, Row{240, 0, 240, 120}, Row{3, 1, 6, 3}, Row{240, 1, 480, 240},
        Row{240, 2, 240, 120}}) {
    SCOPED_TRACE(testing::Message() << stored << " lines, interlace " << int{interlace});
    Bytes file = HamBuilder{.interlace = interlace, .height = stored}.build();
    file = withBytesAt(withBytesAt(file, 0x100, palettes[0]), 0x800, palettes[1]);
    file = withBytesAt(withBytesAt(file, 0x1000, pixels[0]), 0x10000, pixels[1]);
    TestViewer window;
    window.open("x.HAM", file);
    std::vector<uint32_t> expected(512 * static_cast<size_t>(height));
    std::array<uint32_t, 256> palette{};
    for (size_t page = 0; page < 2; ++page) {
      const std::span<const uint8_t> block(palettes[page]);
      for (size_t i = 0; i < 16; ++i) palette[i] = colourOf(block.subspan(2 * i, 2));
      for (size_t y = 0; y < pageLines; ++y) {
        for (size_t x = 0; x < 512; ++x) {
          const uint8_t byte = pixels[page][y * 256 + x / 2];
          const size_t index = (2 * y + page) * 512 + x;
          if (index < expected.size()) expected[index] = palette[x % 2 == 0 ? byte / 16 : byte % 16];
        }
        for (size_t k = 2 * y; k < 2 * y + 2; ++k) palette[block[32 + 3 * k]] = colourOf(block.subspan(33 + 3 * k, 2));
      }
    }
    EXPECT_EQ(window.viewer.imageHeight, height);
    EXPECT_TRUE(window.viewer.frameBits == expected);
    EXPECT_EQ(window.viewer.palette, palette);
    EXPECT_EQ(window.viewer.vramPos, static_cast<int32_t>(pageLines * 256));
  }
}

TEST(Ham, HeaderChecks) {
  using Row = std::tuple<const char *, HamBuilder, bool, bool>; // description stored, loads
  for (const auto &[name, header, stored, loads] :
       {Row{"right", {}, true, true}, Row{"first letter", {.magic = "hAM"}, false, false},
        Row{"storage 2", {.storage = 2}, true, true}, Row{"storage 3", {.storage = 3}, false, false},
        Row{"packed, width 0", {.storage = 1, .width = 0}, true, false}, Row{"height 240", {.height = 240}, true, true},
        Row{"height 241", {.height = 241}, true, false},
        Row{"interlace, height 241", {.interlace = 1, .height = 241}, true, false}}) {
    SCOPED_TRACE(name);
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    const std::string before = pictureText(viewer);
    window.open("x.HAM", header.build());
    EXPECT_EQ(viewer.window.Label4, loads ? "" : errorLine(".HAM"));
    EXPECT_EQ(viewer.pictureShown, toFlag(loads));
    EXPECT_EQ(pictureText(viewer) == before, !stored);
    if (!stored) continue;
    EXPECT_EQ(descriptionOf(viewer),
              std::string("4 bits, mode 0, 16 colours, palette -1, packed ") + (header.storage != 0 ? "-1" : "0") +
                  ", sprites 1; " + (loads ? "512x" + std::to_string(header.height) + ", 16 colors" : ", old colors"));
    EXPECT_EQ(viewer.imageWidth, loads ? 512 : kOldByte);
    EXPECT_EQ(viewer.imageHeight, loads ? header.height : kOldByte);
  }
}

TEST(Ham, BlocksThatTheFileDoesNotHoldAreZero) {
  for (size_t missing = 0; missing < 4; ++missing) {
    for (const uint32_t offset : {0x20000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
      SCOPED_TRACE(testing::Message() << "block " << missing << " at " << offset);
      HamBuilder header;
      const Bytes white = withBytesAt(Bytes(32 + 12), 2, {0x77, 0x07}); // entry 1
      const auto put = [&](const HamBuilder &builder) {
        const Bytes file = withBytesAt(withBytesAt(builder.build(), 0x100, white), 0x800, white);
        return withBytesAt(withBytesAt(file, 0x1000, Bytes(512, 0x11)), 0x10000, Bytes(512, 0x11));
      };
      TestViewer window;
      window.open("x.HAM", put(header));
      EXPECT_EQ(window.viewer.frameBits, std::vector<uint32_t>(4 * 512, 0xFFFFFF));
      header.offsets[missing] = offset;
      window.open("x.HAM", put(header));
      EXPECT_EQ(window.viewer.window.Label4, "");
      for (size_t y = 0; y < 4; ++y)
        EXPECT_EQ(window.viewer.frameBits[y * 512 + 5], y % 2 == missing % 2 ? 0 : 0xFFFFFF) << y;
    }
  }
}

} // namespace
