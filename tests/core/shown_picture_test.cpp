// What works on the picture on screen: read-out, colour count, Image Info, bitmaps.
#include "core/bitmap_export.h"
#include "core/colour_count.h"
#include "core/colour_readout.h"
#include "core/file_kinds.h"
#include "core/image_info.h"
#include "core/palette_commands.h"
#include "support/bytes.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"
#include "video/eva_player.h"

#include <gtest/gtest.h>
#include <numeric>

namespace {

// Pixels of colours 1, 15, 2 and 3, then 0; colours 1 and 2 are the same.
Bytes twinColours() {
  const Bytes palette{0x00, 0x00, 0x21, 0x03, 0x21, 0x03, 0x70, 0x00};
  return BloadBuilder{.body = withBytesAt(withBytesAt({0x1F, 0x23}, 0x7680, palette), 0x7680 + 30, {0x77, 0x07})}
      .build();
}

TEST(ShownPicture, ColourUnderTheMouse) {
  struct Row {
    const char *path;
    Bytes file;
    bool zoomed;
    int32_t x, y;
    const char *text;
    uint32_t colour;
  };
  const Bytes twins = twinColours();
  // Y 30, 30, 2, 0; J and K are 0; in the next group bits 3 are set: colours 15 and 1.
  const Bytes groups = BloadBuilder{.body = {0xF0, 0xF0, 0x10, 0x00, 0xF8, 0x18}}.build();
  const Bytes screen8 = BloadBuilder{.body = {0xE0}}.build();
  for (const auto &[path, file, zoomed, x, y, text, colour] :
       {Row{"a.SC5", twins, true, 1, 1, "0, 0   color 1   #496D24", 0x496D24},
        Row{"a.SC5", twins, true, 4, 0, "2, 0   color 2   #496D24", 0x496D24},
        Row{"a.SC5", twins, true, 511, 423, "255, 211   color 0   #000000", 0},
        Row{"a.SC5", twins, true, 512, 0, "", 0}, Row{"a.SC5", twins, true, 0, 424, "", 0},
        Row{"a.SC5", twins, true, -1, 0, "", 0}, Row{"a.SC5", twins, true, 0, -1, "", 0},
        Row{"a.SC5", twins, false, 2, 0, "2, 0   color 2   #496D24", 0x496D24},
        Row{"a.SC7", twins, true, 3, 3, "3, 1   color 0   #000000", 0}, // lines shown twice
        Row{"a.SC7", twins, true, 3, 424, "", 0}, Row{"a.SC8", screen8, true, 0, 0, "0, 0   #00FC00", 0x00FC00},
        Row{"a.SCC", groups, false, 3, 0, "3, 0   #000000", 0}, // black, as color 0 is
        Row{"a.SCA", groups, false, 0, 0, "0, 0   #F0F0F8", 0xF0F0F8},
        Row{"a.SCA", groups, false, 4, 0, "4, 0   color 15   #FFFFFF", 0xFFFFFF}}) {
    SCOPED_TRACE(testing::Message() << path << " " << x << ", " << y);
    TestViewer window;
    window.viewer.zoomMode = zoomed ? 1 : 0;
    window.open(path, file);
    const auto palette = window.viewer.palette;
    const auto frame = window.viewer.frameBits;
    window.viewer.window.readout = {"old", 1};
    moveMouse(window.viewer, x, y);
    EXPECT_EQ(window.viewer.window.readout.text, text);
    EXPECT_EQ(window.viewer.window.readout.colour, colour);
    EXPECT_TRUE(window.viewer.palette == palette && window.viewer.frameBits == frame);
  }
}

TEST(ShownPicture, ReadOutFollowsWhatHappensToThePicture) {
  TestViewer window;
  const std::string &text = window.viewer.window.readout.text;
  const auto pointed = [&] { return moveMouse(window.viewer, 4, 0), text; };
  EXPECT_EQ(pointed(), ""); // before any picture
  window.open("a.SC5", twinColours());
  scarceMemory() = {.beyond = 200'000, .refusedBlock = 1};
  EXPECT_EQ(pointed(), "2, 0   #496D24"); // without the memory for the entries
  scarceMemory() = {};
  menuReload_Click(window.viewer);
  EXPECT_EQ(pointed(), "2, 0   color 2   #496D24");
  memoryDisk()["p.PL5"] = Bytes(32, 0xFF);
  window.platform.chosenFiles = {"p.PL5"};
  menuLoadPal_Click(window.viewer); // refused, so the palette is the standard one
  EXPECT_EQ(pointed(), "2, 0   #496D24");
  leaveMouse(window.viewer);
  EXPECT_EQ(text, "");
  window.platform.events.push_back({[](ViewerState &viewer, const std::string &) { moveMouse(viewer, 4, 0); }, ""});
  window.open("b.SC5", BloadBuilder{.body = {0xFF, 0xFF}}.build());
  EXPECT_EQ(text, ""); // while it was loaded
  EXPECT_EQ(pointed(), "2, 0   color 15   #FFFFFF");
  window.viewer.frameBits.resize(2);
  EXPECT_EQ(pointed(), "");
  menuClose_Click(window.viewer);
  EXPECT_EQ(text + pointed(), "");
}

// The commands on the picture one after another, and what they leave.
std::string seen(TestViewer &window) {
  ViewerState &viewer = window.viewer;
  menuSavePal_Click(viewer);
  viewer.storedPalette[1] = 0xABCDEF;
  menuRestPal_Click(viewer);
  menuZoom_Click(viewer);
  menuDoubleHeight_Click(viewer);
  moveMouse(viewer, 1, 4);
  const Stretch &stretch = viewer.window.stretch;
  return std::to_string(stretch.targetWidth) + "x" + std::to_string(stretch.targetHeight) + ", " +
         std::to_string(shownColourCount(viewer)) + " colours, " + bitmapPath(viewer) + ", " +
         viewer.window.readout.text + testing::PrintToString(viewer.frameBits);
}

TEST(ShownPicture, GoesByItsOwnKindAfterAFileThatIsNotShown) {
  // The last one is refused when half of its header is taken.
  const Bytes half{'G', '9', 'B', 11, 0, 16, 0x80, 2, 100, 0, 50, 0, 2}, bad{1, 2, 3};
  const Bytes pixels = noise(50, 1); // of lines of 11, which run on: the one at 1, 2 is the 23rd, counted from 0
  const std::string gl5 = "11x18, 16 colours, a.bmp, 1, 2   color " + std::to_string(pixels[11] & 15);
  for (const auto &[path, file, expected] :
       {std::tuple{"a.GL5", joined({word(11), word(9), pixels}), gl5},
        {"a.SC2", BloadBuilder{.body = noise(0x3800, 2)}.build(), "256x384, 16 colours, a.bmp"},
        {"a.SC6", BloadBuilder{.body = noise(0x6A00, 3)}.build(), "512x424, 4 colours, a.bmp"}}) {
    TestViewer quiet;
    quiet.open(path, file);
    const std::string before = seen(quiet);
    EXPECT_TRUE(before.starts_with(expected)) << before;
    for (const char *other : {"x.GL7", "x.PCT", "x.HAM", "x.TXT", "x.VID", "x.G9B"}) {
      TestViewer window;
      window.open(path, file);
      window.open(other, other == std::string("x.G9B") ? half : bad);
      EXPECT_EQ(seen(window), before) << path << " " << other;
    }
  }
}

TEST(ShownPicture, ColourCount) {
  std::vector<uint32_t> words(200000);
  for (uint32_t i = 0; i < 200000; ++i) words[i] = i % 100000 * 167 | i << 24; // the top byte is no colour
  EXPECT_EQ(CountUniqueColours(words), 100000);
  using Row = std::tuple<const char *, int16_t, uint32_t, int32_t>;
  for (const auto &[extension, bitsPerPixel, counted, shown] :
       {Row{".SC5", 4, 0, 0}, Row{".SC5", 4, 16, 16}, Row{".SC5", 4, 17, 16}, Row{".SC6", 2, 4, 4},
        Row{".SC6", 2, 5, 4}, Row{".SC8", 8, 257, 256}, Row{".G9B", 16, 65537, 65536}, Row{".SC2", 1, 3, 3},
        Row{".SC2", 1, 17, 16}, Row{".SR4", 0, 17, 16}, Row{".PCT", 1, 2, 2}, Row{".PCT", 1, 3, 2},
        Row{".PCT", 1, 4, 4}, Row{".HAM", 4, 500, 500}, Row{".VID", 4, 0, -1}, Row{".VID", 4, 1, 0},
        Row{".VID", 4, 18, 16}, Row{".VID", 1, 4, 2}}) {
    TestViewer window;
    window.viewer.pictureKind = findFileKind(extension);
    window.viewer.picture.bitsPerPixel = bitsPerPixel;
    window.viewer.frameBits.resize(counted);
    std::iota(window.viewer.frameBits.begin(), window.viewer.frameBits.end(), 0u);
    menuCountColors_Click(window.viewer);
    EXPECT_EQ(window.platform.log[0],
              "showMessage (i) Image Color Count: The amount of unique colors in this image is" +
                  std::string(shown < 0 ? "" : " ") + std::to_string(shown) + ".")
        << extension << " " << counted;
  }
}

TEST(ShownPicture, ImageInfo) {
  TestViewer window;
  for (const auto &[path, file, text] :
       {std::tuple{"d\\a.SR7", BloadBuilder{.identifier = 0xFD, .body = Bytes(993)}.build(),
                   "File name:\ta.SR7\nFolder:\td\\\nSize on disk:\t1,000 bytes\nType:\tScreen 7 BLOAD file "
                   "(compressed)\nSize:\t512 x 212 pixels\nDepth:\t4 bits per pixel\nColors:\t16 colors\n"
                   "Palette:\tyes, 16 colors\n"},
        {"bad.SC6", Bytes{1, 2, 3},
         "File name:\tbad.SC6\nFolder:\t\nSize on disk:\t3 bytes\nType:\tScreen 6 BLOAD file\n"
         "Picture shown:\tstill that of d\\a.SR7\nSize:\t512 x 212 pixels\n"},
        {"a.EVA", withBytesAt(Bytes(15360 * 2), 15359, {5}),
         "File name:\ta.EVA\nFolder:\t\nSize on disk:\t30,720 bytes\nType:\tEVA YJK video file\n"
         "Size:\t128 x 106 pixels\nDepth:\t8 bits per pixel\nColors:\tYJK colors\nPalette:\tno\n"
         "Frames:\t2\nRate:\t12 frames a second\nLength:\t0.2 seconds\nSound:\t15,744 Hz, 8 bits, mono\n"}}) {
    window.open(path, file);
    menuImageInfo_Click(window.viewer);
    EXPECT_EQ(window.platform.log.back(), std::string("showText Image Info\n") + text);
  }
}

TEST(ShownPicture, NameOfTheBitmap) {
  using Row = std::tuple<const char *, int32_t, const char *>; // frame of a video; -1: a picture
  for (const auto &[path, frame, expected] :
       {Row{"C:\\d.x\\a.SC5", -1, "C:\\d.x\\a.bmp"}, Row{"name.ab", -1, "namebmp"}, // always three characters
        Row{"d\\movie.EVA", 12, "d\\movie - 0012.bmp"}, Row{"a.VID", 10000, "a - 10000.bmp"}}) {
    ViewerState viewer;
    viewer.picturePath = path;
    viewer.player = frame >= 0 ? &kEvaPlayer : nullptr;
    viewer.window.HScroll1.value = frame;
    EXPECT_EQ(bitmapPath(viewer), expected);
  }
}

TEST(ShownPicture, IsSavedAndCopiedAtItsOwnSizeOrAsBefore) {
  TestViewer window;
  window.open("d\\a.SC7", BloadBuilder{.body = {0x1F}}.build());
  const Bytes old{1, 2, 3};
  for (int failing = 1; failing > 0; ++failing) {
    memoryDisk()["d\\a.bmp"] = old;
    window.platform.log.clear();
    diskFaults() = {.failingOutputStep = failing};
    menuSaveBMP_Click(window.viewer);
    if (window.platform.log.empty()) break;
    EXPECT_EQ(window.platform.log[0], "showMessage (!) Korilan: Could not save d\\a.bmp\n\ndisk is broken");
    EXPECT_EQ(memoryDisk().at("d\\a.bmp"), old) << failing;
  }
  EXPECT_EQ(diskFaults().outputSteps, 14); // header, 11 chunks, with beginning and end
  diskFaults() = {};
  const Bytes &file = memoryDisk().at("d\\a.bmp");
  ASSERT_EQ(file.size(), 54u + 512 * 212 * 3);
  // The pixels at the top left begin the last row of the file: standard colours 1, 15 and 0.
  EXPECT_EQ(Bytes(file.end() - 512 * 3, file.end() - 512 * 3 + 9), (Bytes{8, 8, 8, 255, 255, 255, 0, 0, 0}));

  for (const auto &[held, block] : {std::pair{true, 0}, {false, 1}, {false, 2}, {false, 0}}) {
    window.platform.log.clear();
    window.platform.clipboardHeld = held;
    scarceMemory() = {.beyond = 300'000, .refusedBlock = block};
    menuCopyClipboard_Click(window.viewer);
    scarceMemory() = {};
    const bool copied = !held && block == 0;
    EXPECT_EQ(window.platform.log.back().starts_with("showMessage (!) Korilan: Could not copy: "), !copied);
    EXPECT_EQ(window.platform.clipboard, copied ? Bytes(file.begin() + 14, file.end()) : Bytes());
    EXPECT_EQ(window.platform.clipboardV5.size(), copied ? file.size() - 54 + 124 : 0);
  }
}

} // namespace
