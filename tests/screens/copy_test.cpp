#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

struct Kind {
  const char *extension;
  int mostWidth, bitsPerPixel;
  bool hasPalette, highPixels;
  uint32_t colour0, colour1;
  const char *description;
};

const Kind kKinds[] = {
    // clang-format off
    {".GL5", 256, 4, true, false, 0x000000, 0x080808, "4 bits, mode 0, 16 colours, palette -1, packed 0, sprites 1; 9x8, 16 colors"},
    {".GL6", 512, 2, true, true, 0x000000, 0x080808, "2 bits, mode 0, 4 colours, palette -1, packed 0, sprites 1; 9x8, 4 colors"},
    {".STP", 512, 2, true, true, 0xFFFFFF, 0x000000, "2 bits, mode 0, 4 colours, palette -1, packed 0, sprites 1; 9x8, 4 colors"},
    {".GL7", 512, 4, true, true, 0x000000, 0x080808, "4 bits, mode 0, 16 colours, palette -1, packed 0, sprites 1; 9x8, 16 colors"},
    {".GL8", 256, 8, false, false, kOldColour, kOldColour, "8 bits, mode 64, 0 colours, palette 0, packed 0, sprites 1; 9x8, 256 colors"},
    {".GLA", 256, 8, true, false, 0x000000, 0x080808, "8 bits, mode 255, 16 colours, palette -1, packed 0, sprites 1; 9x8, YAE colors"},
    {".GLB", 256, 8, true, false, 0x000000, 0x080808, "8 bits, mode 255, 16 colours, palette -1, packed 0, sprites 1; 9x8, YAE colors"},
    // clang-format on
};

Bytes copyFile(int width, int height, const Bytes &pixels = {}) { return joined({word(width), word(height), pixels}); }

TEST(Copy, LoadedPicture) {
  for (const Kind &kind : kKinds) {
    SCOPED_TRACE(kind.extension);
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    const Bytes pixels = noise(40, 7);
    window.open(std::string("x") + kind.extension, copyFile(9, 8, pixels)); // ends before the last 32 of 8 bits
    EXPECT_EQ(descriptionOf(viewer), kind.description);
    EXPECT_EQ(viewer.paletteFilePos, 0);
    EXPECT_EQ(viewer.palette[0], kind.colour0);
    EXPECT_EQ(viewer.palette[1], kind.colour1);
    EXPECT_EQ(viewer.palette[2], kind.hasPalette ? 0x24DA24 : kOldColour);
    EXPECT_EQ(viewer.palette[15], kind.hasPalette ? 0xFFFFFF : kOldColour);
    EXPECT_EQ(viewer.palette[16], kOldColour);
    EXPECT_EQ(viewer.window.Label4, "");
    EXPECT_EQ(bytesOf(viewer.vram), withBytesAt(Bytes(viewer.vram.size(), kOldByte), 0, pixels)); // the rest as it was
    if (kind.bitsPerPixel == 8) continue;
    const size_t bits = static_cast<size_t>(kind.bitsPerPixel);
    for (size_t n = 0; n < 72; ++n) { // lines run on within a byte
      size_t index = 0;
      for (size_t bit = n * bits; bit < (n + 1) * bits; ++bit)
        index = index * 2 + (pixels[bit / 8] >> (7 - bit % 8) & 1);
      EXPECT_EQ(viewer.frameBits[n], viewer.palette[index]) << n;
    }
  }
}

TEST(Copy, BytePixelsOfARectangle) {
  TestViewer window;
  window.open("a.GL8", copyFile(9, 8, withBytesAt(Bytes(72), 10, {0xFF, 0x1C}))); // (1, 1) and (2, 1)
  EXPECT_EQ(window.viewer.frameBits[10], 0xFCFCFFu);
  EXPECT_EQ(window.viewer.frameBits[11], 0xFC0000u);
  window.open("a.GLA", copyFile(9, 8, withBytesAt(Bytes(64), 8, {0x58, 0x58}))); // two groups a line
  EXPECT_EQ(window.viewer.frameBits[8], 0u);
  EXPECT_EQ(window.viewer.frameBits[9], 0x486DFFu); // standard colour 5
}

TEST(Copy, SizeBounds) {
  for (const Kind &kind : kKinds) {
    const int most = kind.mostWidth;
    using Row = std::tuple<int, int, bool>;
    for (const auto &[width, height, loads] :
         {Row{7, 8, false}, Row{8, 8, true}, Row{most, 212, true}, Row{most + 1, 212, false}, Row{8, 7, false},
          Row{8, 212, true}, Row{8, 213, false}, Row{0, 8, false}, Row{8, 0, false}, Row{0x8010, 16, false},
          Row{0xFFFF, 16, false}, Row{16, 0x8010, false}, Row{16, 0xFFFF, false}}) {
      SCOPED_TRACE(testing::Message() << kind.extension << " " << width << "x" << height);
      UsedViewer window;
      const std::string before = pictureText(window.viewer);
      window.open(std::string("x") + kind.extension, copyFile(width, height));
      EXPECT_EQ(window.viewer.window.Label4, loads ? "" : errorLine(kind.extension));
      EXPECT_EQ(window.viewer.pictureShown, toFlag(loads));
      if (loads) continue;
      EXPECT_EQ(pictureText(window.viewer), before);
      EXPECT_FALSE(window.viewer.window.menuDoubleHeight.checked);
    }
  }
}

TEST(Copy, Screen12IsAlwaysRefused) {
  UsedViewer window;
  const std::string before = pictureText(window.viewer);
  for (const int width : {0, 7, 8, 9, 255, 256, 257, 0x8000}) {
    for (const int height : {7, 8, 212, 213}) {
      window.open("x.GLC", copyFile(width, height, Bytes(300)));
      EXPECT_EQ(window.viewer.window.Label4, errorLine(".GLC")) << width << "x" << height;
      EXPECT_EQ(pictureText(window.viewer), before) << width << "x" << height;
    }
  }
}

TEST(Copy, HighPixelsUnlessSwitchedOff) {
  for (const Kind &kind : kKinds) {
    for (const Flag16 Check5 : {kFalse, kTrue}) {
      TestViewer window;
      window.viewer.preferences.Check5 = Check5;
      window.open(std::string("x") + kind.extension, copyFile(8, 8));
      EXPECT_EQ(window.viewer.window.menuDoubleHeight.checked, kind.highPixels && Check5 == kFalse)
          << kind.extension << " " << Check5;
    }
  }
}

} // namespace
