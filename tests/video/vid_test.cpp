#include "core/keys.h"
#include "support/viewer_text.h"
#include "video/video_files.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

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

TEST(Vid, EachHeaderCheckRefuses) {
  using Row = std::tuple<const char *, size_t, uint8_t>;
  std::vector<Row> rows{{"byte 8", 8, 1},          {"byte 9", 9, 1},         {"byte 13", 13, 1},
                        {"byte 13 high", 13, 255}, {"colour code 0", 18, 0}, {"colour code 2", 18, 2},
                        {"colour code 6", 18, 6},  {"colour code 8", 18, 8}, {"colour code 263", 19, 1}};
  for (size_t i = 0; i < 8; ++i) rows.emplace_back("magic", i, 'x');
  for (const auto &[name, place, value] : rows) {
    SCOPED_TRACE(name + (" " + std::to_string(place)));
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
  struct Row {
    const char *name;
    VidFile file;
    Pixels shown; // as far as something is shown; black from there on
    size_t pixels;
    const char *status = "VID [10fps]";
  };
  const Bytes white(32767, 0x88);
  const uint32_t c0 = kColours[0], c3 = kColours[3], c8 = kColours[8];
  for (const Row &row : {Row{"rate 0", {0, 1, 4, 1, 7, 2, white}, Pixels(4, c8), 4, "VID [0fps]"},
                         Row{"rate 255", {255, 1, 4, 1, 7, 2, white}, Pixels(4, c8), 4, "VID [255fps]"},
                         Row{"no frames", {10, 0, 4, 1, 7, 2, white}, Pixels(4, c8), 4},
                         Row{"minus one frame", {10, -1, 4, 1, 7, 2, white}, Pixels(4, c8), 4},
                         Row{"file ends in the frame", {10, 1, 4, 1, 7, 2, {0x88}}, {c8, c8, c0, c0}, 4},
                         Row{"odd width", {10, 1, 3, 2, 7, 2, white}, {c8, c8, 0, c8, c8, 0}, 6},
                         Row{"4 colours, width 6", {10, 1, 6, 1, 1, 2, {0xFF}}, {c3, c3, c3, c3, 0, 0}, 6},
                         Row{"4 colours, 0x88", {10, 1, 4, 1, 1, 1, {0x88}}, {c3, c0, c0, c0}, 4},
                         Row{"negative width", {10, 1, -4, 1, 7, 2, white}, {}, 0},
                         Row{"negative height", {10, 1, 4, -1, 7, 2, white}, {}, 0},
                         Row{"frame size -1", {10, 1, 4, 1, 7, -1, white}, Pixels(4, c0), 4},
                         Row{"frame size -300", {10, 1, 4, 1, 7, -300, white}, Pixels(4, c0), 4},
                         Row{"65536 pixels are 0", {10, 1, 256, 256, 7, 32640, white}, {}, 65536},
                         Row{"65792 are 256", {10, 1, 256, 257, 7, 32640, white}, Pixels(256, c8), 65792},
                         Row{"90000 are 24464", {10, 1, 300, 300, 7, 32640, white}, Pixels(24464, c8), 90000}}) {
    SCOPED_TRACE(row.name);
    TestViewer test;
    test.open("x.VID", row.file.build());
    Pixels expected = row.shown;
    expected.resize(row.pixels);
    EXPECT_TRUE(test.viewer.frameBits == expected);
    EXPECT_EQ(test.viewer.window.Label4, row.status);
    EXPECT_EQ(test.viewer.window.HScroll1.maximum, row.file.frameCount - 1);
    EXPECT_EQ(controlsOf(test.viewer), kVideoControls);
    const auto log = test.platform.log;
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.log == log, row.file.frameCount <= 0);
  }
}

// Only paging gives a second file the row length of its own.
TEST(Vid, RowLengthOfAnEarlierFile) {
  const Bytes narrow = VidFile{.width = 2, .height = 2, .frameSize = 2, .frames = {0x23, 0x45}}.build();
  const Bytes wide = VidFile{.width = 4, .height = 2, .frameSize = 4, .frames = {0x88, 0x88, 0x88, 0x88}}.build();
  const Pixels own{kColours[2], kColours[3], kColours[4], kColours[5]};
  const Pixels ofWide{kColours[2], kColours[3], 0, 0};
  using Row = std::tuple<const char *, int, Pixels>; // key
  for (const auto &[name, key, expected] : {Row{"open", 0, ofWide}, Row{"Close", 'W', ofWide}, Row{"page up", 33, own},
                                            Row{"page down", 34, own}, Row{"end", 35, own}, Row{"home", 36, own}}) {
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
