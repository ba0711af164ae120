#include "core/keys.h"
#include "support/viewer_text.h"
#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

constexpr uint32_t kColours[16] = {0xFFFF91, 0x000000, 0xFF9100, 0x910000, 0x00FFFF, 0x000091, 0x9191FF, 0x0000FF,
                                   0xFFFFFF, 0x009100, 0x00FF00, 0xFF00FF, 0xFFFF00, 0x919191, 0xFF9191, 0xFF0000};

Bytes allBytes() {
  Bytes bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<uint8_t>(byte));
  return bytes;
}

TEST(Vid, EveryByteOfBothColourCodes) {
  TestViewer four, sixteen;
  four.open("x.VID",
            VidFile{.width = 64, .height = 16, .colourCode = 1, .frameSize = 256, .frames = allBytes()}.build());
  sixteen.open("x.VID", VidFile{.width = 32, .height = 16, .frameSize = 256, .frames = allBytes()}.build());
  const auto &frame4 = four.viewer.frameBits, &frame16 = sixteen.viewer.frameBits;
  ASSERT_EQ(frame4.size(), 1024u);
  ASSERT_EQ(frame16.size(), 512u);
  constexpr int kSource[8] = {4, 0, 5, 1, 6, 2, 7, 3}; // of output bits 0 to 7
  for (size_t byte = 0; byte < 256; ++byte) {
    const auto bit = [byte](size_t number) { return byte >> number & 1; };
    for (size_t pixel = 0; pixel < 4; ++pixel) {
      EXPECT_EQ(frame4[byte * 4 + pixel], kColours[bit(7 - pixel) + 2 * bit(3 - pixel)]) << byte << " " << pixel;
    }
    size_t linear = 0;
    for (size_t i = 0; i < 8; ++i) linear += bit(static_cast<size_t>(kSource[i])) << i;
    EXPECT_EQ(four.viewer.vidPlayer.frameData[byte], linear) << byte;
    EXPECT_EQ(frame16[byte * 2], kColours[byte / 16]) << byte;
    EXPECT_EQ(frame16[byte * 2 + 1], kColours[byte % 16]) << byte;
  }
}

TEST(Vid, ARefusedHeaderLeavesThePicture) {
  using Row = std::tuple<const char *, size_t, uint8_t>;
  for (const auto &[name, place, value] : {Row{"magic", 0, 'x'}, Row{"byte 13 high", 13, 255},
                                           Row{"colour code 6", 18, 6}, Row{"colour code 263", 19, 1}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    Bytes file = VidFile{.frames = {0x1F, 0x23}}.build();
    test.open("good.VID", file);
    EXPECT_EQ(test.viewer.window.Label4, "VID [10fps]");
    test.open("before.SC8", kScreen8File);
    const std::string before = pictureText(test.viewer);
    test.platform.log.clear();
    file[place] = value;
    test.open("x.VID", file);
    EXPECT_EQ(test.platform.log, std::vector<std::string>{"showMessage Korilan: o_O"});
    EXPECT_EQ(pictureText(test.viewer), before);
    EXPECT_EQ(controlsOf(test.viewer) + test.viewer.window.Label4, kPictureControls);
  }
}

TEST(Vid, UnusualHeaders) {
  // What is shown as far as something is; black from there on
  using Row = std::tuple<const char *, VidFile, Pixels, size_t, const char *>;
  const Bytes white(32767, 0x88);
  const uint32_t c0 = kColours[0], c3 = kColours[3], c8 = kColours[8];
  const char *at10 = "VID [10fps]";
  for (const auto &[name, file, shown, pixels, status] :
       {Row{"rate 255", {255, 1, 4, 1, 7, 2, white}, Pixels(4, c8), 4, "VID [255fps]"},
        Row{"minus one frame", {10, -1, 4, 1, 7, 2, white}, Pixels(4, c8), 4, at10},
        Row{"odd width", {10, 1, 3, 2, 7, 2, white}, {c8, c8, 0, c8, c8, 0}, 6, at10},
        Row{"4 colours, width 6", {10, 1, 6, 1, 1, 2, {0xFF}}, {c3, c3, c3, c3, 0, 0}, 6, at10},
        Row{"negative width", {10, 1, -4, 1, 7, 2, white}, {}, 0, at10},
        Row{"negative height", {10, 1, 4, -1, 7, 2, white}, {}, 0, at10},
        Row{"frame size -1", {10, 1, 4, 1, 7, -1, white}, Pixels(4, c0), 4, at10},
        Row{"65536 pixels are 0", {10, 1, 256, 256, 7, 32640, white}, {}, 65536, at10},
        Row{"65792 are 256", {10, 1, 256, 257, 7, 32640, white}, Pixels(256, c8), 65792, at10},
        Row{"90000 are 24464", {10, 1, 300, 300, 7, 32640, white}, Pixels(24464, c8), 90000, at10}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    test.open("x.VID", file.build());
    Pixels expected = shown;
    expected.resize(pixels);
    EXPECT_TRUE(test.viewer.frameBits == expected);
    EXPECT_EQ(test.viewer.window.Label4, status);
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, file.frameCount - 1);
    EXPECT_EQ(controlsOf(test.viewer), kVideoControls);
    const auto log = test.platform.log;
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.log == log, file.frameCount <= 0);
  }
}

// Only paging gives a second file the row length of its own.
TEST(Vid, RowLengthOfAnEarlierFile) {
  const Bytes narrow = VidFile{.width = 2, .height = 2, .frameSize = 2, .frames = {0x23, 0x45}}.build();
  const Bytes wide = VidFile{.width = 4, .height = 2, .frameSize = 4, .frames = {0x88, 0x88, 0x88, 0x88}}.build();
  const Pixels own{kColours[2], kColours[3], kColours[4], kColours[5]};
  const Pixels ofWide{kColours[2], kColours[3], 0, 0};
  using Row = std::tuple<const char *, int, Pixels>; // key
  for (const auto &[name, key, expected] :
       {Row{"open", 0, ofWide}, Row{"Close", 'W', ofWide}, Row{"page up", 33, own}, Row{"page down", 34, own}}) {
    SCOPED_TRACE(name);
    TestViewer test;
    memoryDisk()["d\\a.VID"] = memoryDisk()["d\\c.VID"] = narrow;
    test.open("d\\b.VID", wide);
    EXPECT_EQ(test.viewer.frameBits, Pixels(8, kColours[8]));
    pressKey(test.viewer, {key, key == 'W'});
    if (expected == ofWide) openPath(test.viewer, "d\\a.VID");
    EXPECT_EQ(test.viewer.frameBits, expected);
  }
  TestViewer test;
  test.open("a.VID", narrow);
  test.open("b.VID", wide);
  const uint32_t white = kColours[8];
  EXPECT_EQ(test.viewer.frameBits, (Pixels{white, white, 0, 0, white, white, 0, 0}));
}

} // namespace
