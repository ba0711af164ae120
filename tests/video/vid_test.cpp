#include "core/bitmap_export.h"
#include "core/image_info.h"
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

TEST(Vid, PaletteTakesMaskedBytes) {
  TestViewer test;
  test.open("x.VID", VidFile{.colourCode = 1, .frameSize = 1, .frames = {0x88}}.build());
  EXPECT_EQ(test.viewer.vidPlayer.frameData[0], 0xC0);
  EXPECT_EQ(test.viewer.frameBits, (Pixels{kColours[3], kColours[0], kColours[0], kColours[0]}));
  const auto &palette = test.viewer.vidPlayer.palette;
  EXPECT_EQ(palette[0], kColours[0]);
  for (size_t colour = 1; colour < 4; ++colour) {
    for (const size_t place : {1, 4, 16, 64})
      EXPECT_EQ(palette[colour * place], kColours[colour]) << colour << " " << place;
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
    test.open("before.SC8", Bytes{0xFE, 0, 0, 0xFF, 0xD3, 0, 0, 0x1C});
    const std::string before = pictureText(test.viewer);
    Bytes file = VidFile{.frames = {0x1F, 0x23}}.build();
    test.open("good.VID", file);
    EXPECT_NE(pictureText(test.viewer), before);
    test.open("before.SC8", memoryDisk()["before.SC8"]);
    test.platform.log.clear();
    file[place] = value;
    test.open("x.VID", file);
    EXPECT_EQ(test.platform.log, std::vector<std::string>{"showMessage Korilan: o_O"});
    EXPECT_EQ(pictureText(test.viewer), before);
    EXPECT_EQ(test.viewer.window.Label4, "");
    EXPECT_EQ(controlsOf(test.viewer), kPictureControls);
    EXPECT_EQ(test.viewer.window.caption, "Korilan - x.VID");
    Image1_Click(test.viewer);
    EXPECT_EQ(test.viewer.vidPlayer.playing, kFalse);
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
  const uint32_t c0 = kColours[0], c1 = kColours[1], c8 = kColours[8], c15 = kColours[15];
  for (const Row &row :
       {Row{"plain", {.frames = {0x1F, 0x88}}, {c1, c15, c8, c8}, 4},
        Row{"rate 0", {.rate = 0, .frames = white}, Pixels(4, c8), 4, "VID [0fps]"},
        Row{"rate 255", {.rate = 255, .frames = white}, Pixels(4, c8), 4, "VID [255fps]"},
        Row{"no frames", {.frameCount = 0, .frames = white}, Pixels(4, c8), 4},
        Row{"minus one frame", {.frameCount = -1, .frames = white}, Pixels(4, c8), 4},
        Row{"file ends in the frame", {.frames = {0x88}}, {c8, c8, c0, c0}, 4},
        Row{"no frame data", {}, Pixels(4, c0), 4},
        Row{"odd width", {.width = 3, .height = 2, .frames = white}, {c8, c8, 0, c8, c8, 0}, 6},
        Row{"4 colours, width 6",
            {.width = 6, .height = 2, .colourCode = 1, .frames = {0xFF, 0xFF}},
            {kColours[3], kColours[3], kColours[3], kColours[3], 0, 0, kColours[3], kColours[3], kColours[3],
             kColours[3], 0, 0},
            12},
        Row{"negative width", {.width = -4, .frames = white}, {}, 0},
        Row{"negative height", {.height = -1, .frames = white}, {}, 0},
        Row{"no width", {.width = 0, .frames = white}, {}, 0},
        Row{"frame size -1", {.frameSize = -1, .frames = white}, Pixels(4, c0), 4},
        Row{"frame size -300", {.frameSize = -300, .frames = white}, Pixels(4, c0), 4},
        Row{"65280 pixels",
            {.width = 256, .height = 255, .frameSize = 32640, .frames = white},
            Pixels(65280, c8),
            65280},
        Row{"65536 pixels are 0", {.width = 256, .height = 256, .frameSize = 32640, .frames = white}, {}, 65536},
        Row{"65792 pixels are 256",
            {.width = 256, .height = 257, .frameSize = 32640, .frames = white},
            Pixels(256, c8),
            65792},
        Row{"90000 pixels are 24464",
            {.width = 300, .height = 300, .frameSize = 32640, .frames = white},
            Pixels(24464, c8),
            90000}}) {
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
  struct Row {
    const char *name;
    void (*open)(ViewerState &viewer);
    Pixels shown;
  };
  for (const Row &row : {Row{"open", [](ViewerState &viewer) { openPath(viewer, "d\\a.VID"); }, ofWide},
                         Row{"close, then open",
                             [](ViewerState &viewer) {
                               menuClose_Click(viewer);
                               openPath(viewer, "d\\a.VID");
                             },
                             ofWide},
                         Row{"page up", [](ViewerState &viewer) { pressKey(viewer, {33}); }, own},
                         Row{"page down", [](ViewerState &viewer) { pressKey(viewer, {34}); }, own},
                         Row{"end", [](ViewerState &viewer) { pressKey(viewer, {35}); }, own},
                         Row{"home", [](ViewerState &viewer) { pressKey(viewer, {36}); }, own}}) {
    SCOPED_TRACE(row.name);
    TestViewer test;
    memoryDisk()["d\\a.VID"] = memoryDisk()["d\\c.VID"] = narrow;
    test.open("d\\b.VID", wide);
    EXPECT_EQ(test.viewer.frameBits, Pixels(8, kColours[8]));
    row.open(test.viewer);
    EXPECT_EQ(test.viewer.frameBits, row.shown);
  }
  TestViewer test;
  test.open("a.VID", narrow);
  test.open("b.VID", wide);
  const uint32_t white = kColours[8];
  EXPECT_EQ(test.viewer.frameBits, (Pixels{white, white, 0, 0, white, white, 0, 0}));
}

TEST(Vid, SaveAndImageInfo) {
  TestViewer test;
  test.open("d\\clip.VID", VidFile{.frameCount = 3, .frames = {0, 0, 0, 0, 0x13, 0x22}}.build());
  HScroll1_Change(test.viewer, 2);
  menuSaveBMP_Click(test.viewer);
  const Bytes &file = memoryDisk()["d\\clip - 0002.bmp"];
  ASSERT_EQ(file.size(), 54u + 12);
  EXPECT_EQ(Bytes(file.begin() + 54, file.end()), (Bytes{0, 0, 0, 0, 0, 0x91, 0, 0x91, 0xFF, 0, 0x91, 0xFF}));
  EXPECT_EQ(imageInfo(test.viewer),
            "File name:\tclip.VID\nFolder:\td\\\nSize on disk:\t518 bytes\nType:\tSymbOS video file\n"
            "Size:\t4 x 1 pixels\nDepth:\t4 bits per pixel\nColors:\t16 colors\nPalette:\tno\nFrames:\t3\n"
            "Rate:\t10 frames a second\nLength:\t0.3 seconds\nSound:\tnone\n");
}

} // namespace
