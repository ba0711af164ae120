#include "formats/publisher_page.h"
#include "formats/vscreen_level.h"
#include "screens/byte_pixels.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"
#include "screens/packed_pixels.h"
#include "screens/pattern_screen.h"
#include "core/render_dispatch.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

namespace {

constexpr uint32_t kUntouched = 0x7F000000; // no renderer writes a top byte

// A viewer that holds `bytes` as video memory and a palette of 256 different colours.
ViewerState viewerOf(int32_t width, int32_t height, const Bytes &bytes) {
  ViewerState viewer;
  viewer.imageWidth = width;
  viewer.imageHeight = height;
  std::copy(bytes.begin(), bytes.end(), viewer.vram.begin());
  for (uint32_t i = 0; i < 256; ++i) viewer.palette[i] = 0x010000 * i + 0x00FF00 - 0x0100 * i + 0x5A;
  viewer.frameBits.assign(static_cast<size_t>(width) * static_cast<size_t>(height), kUntouched);
  return viewer;
}

TEST(Renderers, DrawOnlyWhatVideoMemoryHolds) {
  using Row = std::tuple<void (*)(ViewerState &), int32_t, bool>;
  for (const auto &[render, bytes, fromReadPosition] :
       {Row{renderNibbleStream, 6, true}, Row{renderCrumbStream, 3, true}, Row{renderNibbleLinear, 8, false},
        Row{renderCrumbLinear, 4, false}, Row{RenderBytePixels, 15, true}}) {
    SCOPED_TRACE(testing::Message() << bytes << " bytes from the read position " << fromReadPosition);
    for (const int32_t missing : {0, 1}) {
      ViewerState viewer = viewerOf(5, 3, {});
      viewer.vram.resize(static_cast<size_t>(fromReadPosition ? 100 : bytes - missing));
      if (fromReadPosition) viewer.vramPos = 100 - bytes + missing;
      render(viewer);
      EXPECT_EQ(viewer.frameBits[0] != kUntouched, missing == 0);
      EXPECT_EQ(viewer.frameBits[10] != kUntouched, missing == 0);
    }
    ViewerState viewer = viewerOf(5, 3, {});
    viewer.frameBits.resize(14);
    render(viewer);
    EXPECT_EQ(viewer.frameBits[0], kUntouched);
  }
}

TEST(Renderers, DrawNothingIntoAnotherFrameOrFromElsewhere) {
  struct Row {
    const char *name;
    void (*render)(ViewerState &viewer);
    int32_t width, height;
    std::vector<void (*)(ViewerState &viewer)> flaws;
  };
  const auto lessFrame = [](ViewerState &viewer) { viewer.frameBits.pop_back(); };
  const auto narrow = [](ViewerState &viewer) { --viewer.imageWidth, --viewer.frameWidth; };
  const auto low = [](ViewerState &viewer) { --viewer.imageHeight, --viewer.frameHeight; };
  const auto negativeWidth = [](ViewerState &viewer) { viewer.imageWidth = viewer.frameWidth = -1; };
  const auto negativeHeight = [](ViewerState &viewer) { viewer.imageHeight = viewer.frameHeight = -1; };
  const auto before = [](ViewerState &viewer) { viewer.vramPos = -1; };
  const auto behind = [](ViewerState &viewer) { viewer.vramPos = static_cast<int32_t>(viewer.vram.size()) + 1; };
  for (const Row &row : {
           Row{"patterns",
               renderPatternScreen,
               256,
               192,
               {narrow, low, lessFrame, [](ViewerState &viewer) { viewer.vram.resize(0x37FF); }}},
           Row{"tiles", renderTileSet, 256, 64, {narrow, low}},
           Row{"sprites", renderSpriteSet, 256, 48, {narrow, low}},
           Row{"page", renderPublisherPage, 512, 704, {[](ViewerState &viewer) { viewer.vram.resize(45055); }}},
           Row{"HAM",
               RenderHamPicture,
               512,
               4,
               {narrow, negativeHeight, [](ViewerState &viewer) { viewer.hamPages = {}; }}},
           Row{"bytes", RenderBytePixels, 4, 2, {negativeWidth, negativeHeight, before, behind, lessFrame}},
           Row{"16 bits",
               RenderG9b16,
               4,
               2,
               {negativeWidth, negativeHeight, before, behind, lessFrame,
                [](ViewerState &viewer) { viewer.vram.resize(15); }}},
           Row{"nibbles", renderNibbleStream, 4, 2, {negativeWidth, negativeHeight, behind, lessFrame}},
       }) {
    for (size_t flaw = 0; flaw <= row.flaws.size(); ++flaw) {
      SCOPED_TRACE(testing::Message() << row.name << ", flaw " << flaw);
      ViewerState viewer = viewerOf(row.width, row.height, {});
      viewer.frameWidth = row.width;
      viewer.frameHeight = row.height;
      for (HamPage &page : viewer.hamPages) page = {Bytes(32 + 240 * 6), Bytes(240 * 256)};
      if (flaw < row.flaws.size()) row.flaws[flaw](viewer);
      row.render(viewer);
      const bool drawn = flaw == row.flaws.size();
      EXPECT_EQ(std::ranges::count(viewer.frameBits, kUntouched), drawn ? 0 : std::ssize(viewer.frameBits));
    }
  }
}

TEST(BytePixels, EveryByteOfScreen8AndOfThePaletteMode) {
  Bytes bytes(257, 0xEE); // the first byte is not drawn
  for (size_t i = 0; i < 256; ++i) bytes[i + 1] = static_cast<uint8_t>(i);
  for (const uint8_t mode : {ColourModeGrb332, ColourModePalette}) {
    ViewerState viewer = viewerOf(32, 8, bytes);
    viewer.colourMode = mode;
    viewer.vramPos = 1;
    RenderBytePixels(viewer);
    EXPECT_EQ(viewer.vramPos, 257);
    for (uint32_t byte = 0; byte < 256; ++byte) {
      const uint32_t green = (byte >> 5) * 36, red = (byte >> 2 & 7) * 36, blue = (byte & 3) * 85;
      const uint32_t expected = mode == ColourModePalette ? viewer.palette[byte] : red << 16 | green << 8 | blue;
      EXPECT_EQ(viewer.frameBits[byte], expected) << int{mode} << " " << byte;
    }
  }
}

// Level 0 to 31, in real numbers, as a channel.
uint32_t channel(double level) { return static_cast<uint32_t>(std::lround(std::clamp(level, 0.0, 31.0) * 8)); }

TEST(BytePixels, EveryYOfEveryJAndK) {
  Bytes bytes;
  for (int j = -32; j < 32; ++j) {
    for (int k = -32; k < 32; ++k) {
      for (int y = 0; y < 32; ++y) {
        const int chroma[] = {k & 7, k >> 3 & 7, j & 7, j >> 3 & 7};
        bytes.push_back(static_cast<uint8_t>(y << 3 | chroma[y % 4]));
      }
    }
  }
  for (const uint8_t mode : {ColourModeYjk, ColourModeYuv, ColourModeYae}) {
    ViewerState viewer = viewerOf(32, 64 * 64, bytes);
    viewer.colourMode = mode;
    RenderBytePixels(viewer);
    EXPECT_EQ(viewer.vramPos, 32 * 64 * 64);
    size_t n = 0;
    for (int j = -32; j < 32; ++j) {
      for (int k = -32; k < 32; ++k) {
        for (size_t y = 0; y < 32; ++y, ++n) {
          const auto level = static_cast<double>(y);
          const uint32_t red = channel(level + j), second = channel(level + k);
          const uint32_t third = channel(5 * level / 4 - j / 2.0 - k / 4.0);
          uint32_t expected = red << 16 | (mode == ColourModeYuv ? third << 8 | second : second << 8 | third);
          if (mode == ColourModeYae && y % 2 == 1) expected = viewer.palette[y / 2];
          ASSERT_EQ(viewer.frameBits[n], expected) << int{mode} << ": y " << y << " j " << j << " k " << k;
        }
      }
    }
  }
}

TEST(BytePixels, GroupsLeaveTheOddEndOfALine) {
  constexpr uint8_t kUnknownMode = 0x41;
  for (const uint8_t mode : {ColourModeYjk, ColourModeYuv, ColourModeYae, kUnknownMode}) {
    for (size_t width = 0; width < 10; ++width) {
      ViewerState viewer = viewerOf(static_cast<int32_t>(width), 3, {}); // all black
      viewer.colourMode = mode;
      RenderBytePixels(viewer);
      const size_t drawn = mode == kUnknownMode ? 0 : width / 4 * 4;
      EXPECT_EQ(viewer.vramPos, static_cast<int32_t>(3 * drawn)) << int{mode} << " " << width;
      for (size_t n = 0; n < width * 3; ++n) {
        EXPECT_EQ(viewer.frameBits[n], n % width < drawn ? 0 : kUntouched) << int{mode} << " " << width << " " << n;
      }
    }
  }
}

TEST(PatternScreen, EveryPixelByItsAddresses) {
  ViewerState viewer = viewerOf(256, 192, {});
  uint32_t random = 1;
  for (uint8_t &byte : viewer.vram) byte = static_cast<uint8_t>((random = random * 1664525 + 1013904223) >> 24);
  viewer.vramPos = 99;
  renderPatternScreen(viewer);
  EXPECT_EQ(viewer.vramPos, 99);
  for (size_t y = 0; y < 192; ++y) {
    for (size_t x = 0; x < 256; ++x) {
      const size_t pattern = viewer.vram[0x1800 + y / 8 * 32 + x / 8] + y / 64 * 256;
      const uint8_t colours = viewer.vram[0x2000 + pattern * 8 + y % 8];
      const bool set = (viewer.vram[pattern * 8 + y % 8] & 0x80 >> x % 8) != 0;
      ASSERT_EQ(viewer.frameBits[y * 256 + x], viewer.palette[set ? colours / 16 : colours % 16]) << x << " " << y;
    }
  }
}

TEST(RenderDispatch, ViewPaletteAndTheHandOver) {
  using Row = std::tuple<Flag16, uint8_t, bool>;
  for (const auto &[hasPalette, colourCount, enabled] :
       {Row{kTrue, 16, true}, Row{kTrue, 17, false}, Row{kTrue, 0, true}, Row{kFalse, 16, false}}) {
    TestViewer window;
    ViewerState &viewer = window.viewer;
    viewer.hasPalette = hasPalette;
    viewer.colourCount = colourCount;
    viewer.bitsPerPixel = 8;
    viewer.colourMode = ColourModeGrb332;
    viewer.imageWidth = 2;
    viewer.imageHeight = 3;
    viewer.vram[0] = 0x1C;
    viewer.vramPos = 1; // every render begins at 0
    viewer.window.menuViewPal.checked = viewer.window.Label5[15].visible = true;
    renderPicture(viewer);
    EXPECT_EQ(viewer.window.menuViewPal.enabled, enabled) << hasPalette << " " << int{colourCount};
    EXPECT_FALSE(viewer.window.menuViewPal.checked || viewer.window.Label5[15].visible);
    EXPECT_EQ(viewer.frameBits, (std::vector<uint32_t>{0xFC0000, 0, 0, 0, 0, 0}));
    EXPECT_EQ(window.platform.log, (std::vector<std::string>{"runPendingEvents", "presentPicture 2x3"}));
  }
}

} // namespace
