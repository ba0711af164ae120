#include "core/keys.h"
#include "support/scarce_memory.h"
#include "support/viewer_text.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace {

constexpr uint32_t kColours[16] = {0xFFFF91, 0x000000, 0xFF9100, 0x910000, 0x00FFFF, 0x000091, 0x9191FF, 0x0000FF,
                                   0xFFFFFF, 0x009100, 0x00FF00, 0xFF00FF, 0xFFFF00, 0x919191, 0xFF9191, 0xFF0000};

TEST(Vid, ARefusedFileLeavesThePicture) {
  const int scarce = 99; // valid, but there is not enough memory
  for (const int place : {0, 7, 8, 9, 13, 18, 19, scarce}) {
    SCOPED_TRACE(place);
    TestViewer test;
    test.open("before.SC8", kScreen8File);
    const std::string before = pictureText(test.viewer);
    Bytes file = vidFile({10, 1, 1024, 512, 7, 2}, {});
    ++file[static_cast<size_t>(place)];
    scarceMemory() = {.refusedBlock = place == scarce};
    test.open("x.VID", file);
    scarceMemory() = {};
    Image1_Click(test.viewer);
    EXPECT_EQ(test.viewer.loadError, place == scarce ? "*** Error: Not enough memory." : "o_O");
    EXPECT_EQ(std::ranges::count(test.platform.log, "showMessage Korilan: o_O"), place != scarce);
    EXPECT_EQ(pictureText(test.viewer), before);
    EXPECT_EQ(videoSigns(test.viewer), 0);
  }
}

// Pixels of a film whose bytes are 01 23 45 67 89 AB CD EF, over and over.
Pixels inTurn(size_t count) {
  Pixels pixels;
  for (size_t i = 0; i < count; ++i) pixels.push_back(kColours[i % 16]);
  return pixels;
}

TEST(Vid, FirstFrame) {
  Bytes frames(32640);
  for (size_t i = 0; i < frames.size(); ++i) frames[i] = static_cast<uint8_t>(i % 8 * 0x22 + 1);
  // What is shown as far as something is; black from there on
  using Row = std::tuple<const char *, VidHeader, Pixels, size_t>;
  const uint32_t c0 = kColours[0], c1 = kColours[1], c2 = kColours[2], c3 = kColours[3];
  for (const auto &[name, header, shown, pixels] :
       {Row{"16 colours", {10, 1, 16, 2, 7, 16}, inTurn(32), 32},
        Row{"4 colours", {10, 1, 8, 1, 1, 2}, {c0, c0, c0, c2, c0, c0, c3, c2}, 8},
        Row{"rate 255", {255, 1, 4, 1, 7, 2}, inTurn(4), 4}, Row{"no frames", {10, 0, 4, 1, 7, 2}, inTurn(4), 4},
        Row{"odd width", {10, 1, 3, 2, 7, 2}, {c0, c1, 0, c2, c3, 0}, 6},
        Row{"4 colours, width 6", {10, 1, 6, 1, 1, 2}, {c0, c0, c0, c2, 0, 0}, 6},
        Row{"negative width", {10, 1, -4, 1, 7, 2}, {}, 0}, Row{"negative height", {10, 1, 4, -1, 7, 2}, {}, 0},
        Row{"frame size -1", {10, 1, 4, 1, 7, -1}, Pixels(4, c0), 4},
        Row{"a byte more than the frame", {10, 1, 6, 1, 7, 2}, inTurn(6), 6},
        Row{"two more", {10, 1, 8, 1, 7, 2}, {c0, c1, c2, c3, kColours[4], kColours[5], c0, c0}, 8},
        Row{"65536 pixels are 0", {10, 1, 256, 256, 7, 32640}, {}, 65536},
        Row{"65792 are 256", {10, 1, 256, 257, 7, 32640}, inTurn(256), 65792},
        Row{"90000 are 24464", {10, 1, 300, 300, 7, 32640}, inTurn(24464), 90000},
        Row{"64 million at most", {10, 1, 32767, 32767, 7, 2}, {}, 63993951}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    test.open("x.VID", vidFile(header, frames));
    Pixels expected = shown;
    expected.resize(pixels);
    EXPECT_TRUE(test.viewer.frameBits == expected);
    EXPECT_EQ(test.viewer.window.Label4, "VID [" + std::to_string(header.rate) + "fps]");
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, header.frameCount - 1);
    EXPECT_EQ(videoSigns(test.viewer), 5);
    const auto log = test.platform.log;
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.log == log, header.frameCount <= 0);
  }
}

// Only paging gives a second file the row length of its own.
TEST(Vid, RowLengthOfAnEarlierFile) {
  const uint32_t c1 = kColours[1], c2 = kColours[2], c3 = kColours[3], c4 = kColours[4];
  const Bytes narrow = vidFile({10, 1, 2, 2, 7, 2}, {0x12, 0x34}), wide = vidFile({10, 1, 4, 1, 7, 2}, {0x12, 0x34});
  const Pixels own{c1, c2, c3, c4}, half{c1, c2, 0, 0};
  for (const auto &[key, first, second, expected] : {std::tuple{'W', wide, narrow, half},
                                                     {0, wide, narrow, half},
                                                     {0, narrow, wide, half},
                                                     {33, wide, narrow, own}}) {
    TestViewer test;
    memoryDisk()["d\\a.VID"] = second;
    test.open("d\\b.VID", first);
    pressKey(test.viewer, {key, key == 'W'});
    if (expected == half) openPath(test.viewer, "d\\a.VID");
    EXPECT_EQ(test.viewer.frameBits, expected) << key;
  }
}

TEST(VideoMode, WindowOfAVideo) {
  TestViewer test;
  WindowModel &window = test.viewer.window;
  test.viewer.hasPalette = test.viewer.isPacked = kTrue; // what the picture before left
  window.readout.text = "#123456";
  window.menuViewPal.checked = window.Label5[15].visible = true;
  window.pictureSerial = 7;
  test.open("x.VID", vidFile({10, 1, 1024, 512, 1, 2}, {}));
  EXPECT_EQ(window.Label1 + ", " + window.Label2 + ", " + window.Label3, "1024x512, 2 bpp, 4 colors");
  EXPECT_EQ(window.stretch, (Stretch{1024, 512, 2048, 1024}));
  EXPECT_EQ(std::tuple(window.mainViewWidth, window.mainViewHeight, window.pictureSerial), std::tuple(2052, 1028, 8U));
  EXPECT_EQ(window.readout.text, "");
  EXPECT_FALSE(window.menuViewPal.enabled || window.menuViewPal.checked || window.Label5[15].visible);
  EXPECT_EQ(test.viewer.hasPalette | test.viewer.isPacked, kFalse);
}

} // namespace
