#include "screens/picture_bytes.h"

namespace {

constexpr const char *kError = "*** Error: Not a valid SGX file!";

Bytes small(int control, int width, int height) {
  return {static_cast<uint8_t>(control), static_cast<uint8_t>(width), static_cast<uint8_t>(height)};
}

Bytes large(int control, int bytesPerLine, int width, int height, uint8_t second = 0) {
  return joined({{static_cast<uint8_t>(control), second}, word(bytesPerLine), word(width), word(height)});
}

// Size and colour text; bytes per line, height and place of each tile; palette entries of the pixels, black as 1.
std::string textOf(const ViewerState &viewer) {
  std::string text = descriptionText(viewer) + ":";
  for (int32_t i = 0; i < viewer.symbosTileCount; ++i) {
    const SymbosTile &tile = viewer.symbosTiles[static_cast<size_t>(i)];
    for (const int32_t number : {int32_t{tile.bytesPerLine}, tile.height, tile.x, tile.y}) {
      text += " " + std::to_string(number);
    }
  }
  text += ": ";
  for (const uint32_t word : viewer.frameBits) {
    text += "0123456789ABCDEF"[std::find(viewer.palette.begin(), viewer.palette.begin() + 15, word) -
                               viewer.palette.begin()];
  }
  return text;
}

TEST(Symbos, TilesAndPixels) {
  const Bytes newRow = large(255, 0, 0, 0), first = joined({large(64, 1, 2, 2, 5), {0x23, 0x45}});
  using Row = std::tuple<const char *, Bytes, const char *>;
  for (const auto &[name, file, expected] :
       {// The first tile has no width: the second one lies over it, and both count for the height.
        Row{"4 colours", joined({{64, 0, 1}, Bytes(64, 0xFF), small(2, 8, 1), {0x1B, 0xE4}, small(0, 0, 0)}),
            "2 0 4 -1 0 1 8x2 4 colors: 64 1 0 0 2 1 0 0: 0123321033333333"},
        Row{"foreign", joined({small(2, 8, 1), {0x53, 0x0F}, {0, 0, 0}}),
            "2 0 4 -1 0 1 8x1 4 colors: 2 1 0 0: 01232222"},
        Row{"16 colours", joined({first, large(0, 0, 0, 0)}), "4 0 16 -1 0 1 2x2 16 colors: 1 2 0 0: 2345"},
        Row{"end record alone", {0, 0, 0}, "2 0 4 -1 0 1 0x0 4 colors:: "},
        Row{"end record behind a new row", joined({first, newRow, large(0, 0, 0, 7)}),
            "4 0 16 -1 0 1 0x9 16 colors: 1 2 0 0: "},
        Row{"height of a new row in a row", joined({first, large(255, 0, 9, 7), large(1, 1, 2, 1), {0x67}}),
            "4 0 16 -1 0 1 2x3 16 colors: 1 2 0 0 1 1 0 2: 234567"},
        Row{"height of a second new row", joined({first, newRow, large(255, 0, 9, 3), large(1, 0, 1, 1)}),
            "4 0 16 -1 0 1 1x6 16 colors: 1 2 0 0 0 1 0 7: 245111"},
        Row{"negative height", joined({first, newRow, large(1, 9, 1, -1), large(1, 1, 2, 1), {0x67}}),
            "4 0 16 -1 0 1 3x1 16 colors: 1 2 0 0 9 -1 0 2 1 1 1 2: 231"},
        Row{"above the picture", joined({large(64, 0, 0, -2, 5), newRow, large(1, 1, 2, 3), {0x11, 0x22, 0x34}}),
            "4 0 16 -1 0 1 2x1 16 colors: 0 -2 0 0 1 3 0 -2: 34"},
        Row{"8 bits of the width of a line",
            joined({large(64, 0x101, 1, 1, 5), {0x23}, Bytes(256), large(1, 1, 2, 1), {0x45}}),
            "4 0 16 -1 0 1 3x1 16 colors: 1 1 0 0 1 1 1 0: 200"},
        Row{"over the edge", joined({large(64, 2, 2, 2, 5), {0x12, 0x34, 0x56, 0x78}, large(1, 1, 1, 1), {0x9A}}),
            "4 0 16 -1 0 1 3x2 16 colors: 2 2 0 0 1 1 2 0: 129A67"}}) {
    UsedViewer window;
    window.open("x.SGX", file);
    EXPECT_EQ(textOf(window.viewer), expected) << name;
    EXPECT_EQ(window.viewer.palette[0], 0xFFFF91u);
    EXPECT_EQ(window.viewer.palette[15], 0xFF0000u);
    EXPECT_EQ(window.viewer.palette[16], kOldColour);
  }
}

TEST(Symbos, Bounds) {
  const auto tiles = [](int count, int bytesPerLine, int width, int height) {
    return joined(
        {large(64, bytesPerLine, width, height, 5), repeated(count - 1, large(1, bytesPerLine, width, height))});
  };
  using Row = std::tuple<Bytes, const char *, int32_t>; // size, tiles; refused: the size of before
  for (const auto &[file, size, count] :
       {Row{tiles(256, 0, 2, 1), "512x1", 256}, Row{tiles(257, 0, 2, 1), "514x1", 1},
        Row{tiles(1, 0, 65535, 977), "", 0}, Row{tiles(65600, 0, 0, 32767), "0x2147483647", 64},
        Row{tiles(32800, 0, 65535, 0), "2147483647x0", 32}, Row{tiles(65600, 0, 0, -32768), "0x-2147483648", 64},
        Row{{64, 1, 0}, "", 0}, Row{{64, 4, 0}, "", 0}, Row{{64, 6, 0}, "", 0}, Row{{65, 0, 0}, "", 0},
        Row{{65, 5, 0}, "", 0}, Row{{255, 0, 0}, "", 0}}) {
    UsedViewer window;
    const std::string before = pictureText(window.viewer);
    window.open("x.SGX", file);
    EXPECT_EQ(window.viewer.window.Label1, size);
    EXPECT_EQ(window.viewer.window.Label4, *size == 0 ? kError : "") << size;
    EXPECT_EQ(pictureText(window.viewer) == before, *size == 0) << size;
    EXPECT_EQ(window.viewer.symbosTileCount, count) << size;
  }
  TestViewer window;
  window.open("x.SGX", large(64, 64, 128, 32767, 5));
  constexpr size_t kHeld = kVideoMemoryBytes / 64 * 128; // pixels of the lines that video memory holds
  EXPECT_EQ(window.viewer.frameBits[kHeld - 1], window.viewer.palette[0]);
  EXPECT_EQ(window.viewer.frameBits[kHeld], 0u);
}

} // namespace
