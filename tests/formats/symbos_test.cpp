#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

constexpr const char *kError = "*** Error: Not a valid SGX file!";

Bytes small(int control, int width, int height) {
  return {static_cast<uint8_t>(control), static_cast<uint8_t>(width), static_cast<uint8_t>(height)};
}

Bytes large(int control, int bytesPerLine, int width, int height, uint8_t second = 0) {
  return joined({{static_cast<uint8_t>(control), second}, word(bytesPerLine), word(width), word(height)});
}

TEST(Symbos, Variants) {
  using Row = std::tuple<const char *, Bytes, int, const char *, std::vector<uint32_t>>; // bits per pixel, size, frame
  const uint32_t c0 = 0xFFFF91, c1 = 0, c2 = 0xFF9100, c3 = 0x910000, c4 = 0x00FFFF;
  // The first tile has no width: the second one lies over it, and both count for the height.
  const Bytes linear = joined({{64, 0, 1}, Bytes(64, 0xFF), small(2, 8, 1), {0x1B, 0xE4}, small(0, 0, 0)});
  const Bytes open = joined({large(64, 2, 4, 1, 5), {0x12, 0x34}});
  for (const auto &[name, file, bits, size, frame] :
       {Row{"4 colours", linear, 2, "8x2", {c0, c1, c2, c3, c3, c2, c1, c0, c3, c3, c3, c3, c3, c3, c3, c3}},
        Row{"16 colours", joined({open, large(0, 0, 0, 0)}), 4, "4x1", {c1, c2, c3, c4}},
        Row{"no end record", open, 4, "4x1", {c1, c2, c3, c4}}, Row{"end record alone", {0, 0, 0}, 2, "0x0", {}},
        Row{"empty file", {}, 2, "0x0", {}}}) {
    SCOPED_TRACE(name);
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    window.open("x.SGX", file);
    const std::string colours = bits == 2 ? "4" : "16";
    EXPECT_EQ(viewer.window.Label4 + descriptionOf(viewer), std::to_string(bits) + " bits, mode 0, " + colours +
                                                                " colours, palette -1, packed 0, sprites 1; " + size +
                                                                ", " + colours + " colors");
    EXPECT_EQ(viewer.palette[0], c0);
    EXPECT_EQ(viewer.palette[15], 0xFF0000u);
    EXPECT_EQ(viewer.palette[16], kOldColour);
    EXPECT_EQ(viewer.frameBits, frame);
  }
}

TEST(Symbos, EveryFirstAndSecondByte) {
  UsedViewer window;
  const std::string before = pictureText(window.viewer);
  for (int first = 64; first < 256; ++first) {
    for (const int second : {0, 1, 4, 5, 6, 64, 255}) {
      if (first == 64 && (second == 0 || second == 5)) continue;
      window.open("x.SGX", {static_cast<uint8_t>(first), static_cast<uint8_t>(second), 0});
      EXPECT_EQ(window.viewer.window.Label4, kError) << first << " " << second;
      EXPECT_EQ(pictureText(window.viewer), before) << first << " " << second;
    }
  }
}

TEST(Symbos, EveryForeignByte) {
  Bytes bytes(256);
  for (size_t i = 0; i < 256; ++i) bytes[i] = static_cast<uint8_t>(i);
  TestViewer window;
  window.open("x.SGX", joined({small(16, 64, 16), bytes}));
  for (size_t n = 0; n < 1024; ++n) { // low bits in the high half, high bits in the low half
    const size_t byte = n / 4, low = byte >> (7 - n % 4) & 1, high = byte >> (3 - n % 4) & 1;
    ASSERT_EQ(window.viewer.frameBits[n], window.viewer.palette[2 * high + low]) << byte << " " << n % 4;
  }
  using Row = std::tuple<int, int, size_t>; // how many bytes the size of the picture tells
  for (const auto &[width, height, sorted] :
       {Row{4, 1, 1}, Row{6, 1, 1}, Row{7, 1, 2}, Row{10, 1, 3}, Row{18, 1, 5}, Row{0, 4, 0}, Row{8, 3, 6}}) {
    window.open("x.SGX", joined({small(9, width, height), Bytes(9 * static_cast<size_t>(height), 0x88)}));
    for (size_t i = 0; i < 9; ++i)
      EXPECT_EQ(window.viewer.vram[i], i < sorted ? 0xC0 : 0x88) << width << "x" << height << ": " << i;
  }
}

TEST(Symbos, PlacesOfTilesAndSize) {
  using Tiles = std::vector<std::tuple<int, int, int, int, int>>; // bytes per line, width, height, x, y
  using Row = std::tuple<const char *, Bytes, std::string, Tiles>;
  const Bytes newRow = large(255, 0, 0, 0), wide(0x102);
  const Bytes first = joined({large(64, 2, 4, 10, 5), Bytes(20)});
  for (const auto &[name, file, size, tiles] :
       {Row{"end record behind a new row", joined({first, newRow, large(0, 0, 0, 7)}), "0x17", {{2, 4, 10, 0, 0}}},
        Row{"height of an end record in a row", joined({first, large(0, 0, 0, 7)}), "4x10", {{2, 4, 10, 0, 0}}},
        Row{"height of a new row in a row", joined({first, large(255, 0, 9, 7), large(1, 0, 5, 1)}), "5x11",
            Tiles{{2, 4, 10, 0, 0}, {0, 5, 1, 0, 10}}},
        Row{"height of a second new row", joined({first, newRow, large(255, 0, 9, 7), large(1, 0, 5, 1)}), "5x18",
            Tiles{{2, 4, 10, 0, 0}, {0, 5, 1, 0, 27}}},
        Row{"negative height", joined({first, newRow, large(1, 9, 5, -3), large(1, 1, 2, 1), {0}}), "7x7",
            Tiles{{2, 4, 10, 0, 0}, {9, 5, -3, 0, 10}, {1, 2, 1, 5, 10}}},
        Row{"8 bits of the widths", joined({large(64, 0x102, 0x204, 1, 5), wide, large(1, 1, 2, 1), {0}}), "518x1",
            Tiles{{2, 4, 1, 0, 0}, {1, 2, 1, 0x204, 0}}}}) {
    SCOPED_TRACE(name);
    TestViewer window;
    window.open("x.SGX", file);
    EXPECT_EQ(window.viewer.window.Label1, size);
    ASSERT_EQ(window.viewer.symbosTileCount, static_cast<int32_t>(tiles.size()));
    for (size_t i = 0; i < tiles.size(); ++i) {
      const SymbosTile &tile = window.viewer.symbosTiles[i];
      EXPECT_EQ(std::make_tuple(int{tile.bytesPerLine}, int{tile.width}, tile.height, tile.x, tile.y), tiles[i]) << i;
    }
  }
}

TEST(Symbos, TilesBeyondTheirPlace) {
  TestViewer window;
  // Two bytes of a tile that is 2 pixels wide run on, later tiles lie over earlier ones, and the rest is dropped.
  window.open("x.SGX", joined({large(64, 2, 2, 2, 5), {0x12, 0x34, 0x56, 0x78}, large(1, 1, 1, 1), {0x9A}}));
  std::vector<uint32_t> expected;
  for (const size_t index : {1, 2, 9, 10, 6, 7}) expected.push_back(window.viewer.palette[index]); // 3 x 2
  EXPECT_EQ(window.viewer.frameBits, expected);

  using Row = std::pair<int, int32_t>;
  for (const auto &[tiles, counted] : {Row{256, 256}, Row{257, 1}, Row{513, 1}}) {
    Bytes file;
    for (int i = 0; i < tiles; ++i)
      file = joined({file, large(64, 1, 2, 1, 5), {static_cast<uint8_t>(i / 256 * 0x11)}});
    window.open("x.SGX", file);
    EXPECT_EQ(window.viewer.symbosTileCount, counted) << tiles;
    EXPECT_EQ(window.viewer.imageWidth, 2 * tiles) << tiles;
    EXPECT_EQ(window.viewer.symbosTiles[0].x, tiles <= 256 ? 0 : (tiles - 1) / 256 * 512) << tiles;
  }
}

TEST(Symbos, TileAboveThePictureAndTileLongerThanVideoMemory) {
  TestViewer window;
  // The row before is -5 lines high: of seven lines the last two lie in the picture.
  window.open("x.SGX", joined({large(64, 0, 0, -5, 5),
                               large(255, 0, 0, 0),
                               large(1, 1, 2, 7),
                               {0x11, 0x22, 0x33, 0x44, 0x55, 0x67, 0x89}}));
  std::vector<uint32_t> expected;
  for (const size_t index : {6, 7, 8, 9}) expected.push_back(window.viewer.palette[index]);
  EXPECT_EQ(window.viewer.window.Label1, "2x2");
  EXPECT_EQ(window.viewer.frameBits, expected);

  window.open("x.SGX", large(64, 64, 128, 32767, 5));
  EXPECT_EQ(window.viewer.window.Label1, "128x32767");
  constexpr size_t kHeld = 1024 * 1024 / 64 * 128; // pixels of the lines that video memory holds
  EXPECT_EQ(window.viewer.frameBits[kHeld - 1], window.viewer.palette[0]);
  EXPECT_EQ(window.viewer.frameBits[kHeld], 0u);
}

TEST(Symbos, SizesThatCannotBeShown) {
  const auto rows = [](int count, int width, int height) {
    Bytes file = large(64, 0, width, height, 5);
    const Bytes more = large(1, 0, width, height);
    for (int i = 1; i < count; ++i) file.insert(file.end(), more.begin(), more.end());
    return file;
  };
  using Row = std::tuple<const char *, Bytes, bool>;
  for (const auto &[name, file, loads] : {Row{"64,027,695 pixels", rows(1, 65535, 977), false},
                                          Row{"no width, height beyond 31 bits", rows(65600, 0, 32767), true},
                                          Row{"no height, width beyond 31 bits", rows(32800, 65535, 0), true},
                                          Row{"height below -31 bits", rows(65600, 0, -32768), true}}) {
    SCOPED_TRACE(name);
    UsedViewer window;
    window.open("x.SGX", file);
    EXPECT_EQ(window.viewer.window.Label4, loads ? "" : kError);
    EXPECT_EQ(window.viewer.pictureShown, toFlag(loads));
    EXPECT_EQ(window.viewer.imageWidth == kOldByte, !loads);
    EXPECT_TRUE(window.viewer.window.mainViewWidth >= 260 && window.viewer.window.mainViewHeight >= 196);
  }
}

} // namespace
