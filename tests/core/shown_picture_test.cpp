// What works on the picture on screen: sizes, read-out, colour count, Image Info, bitmaps.
#include "base/text.h"
#include "core/bitmap_export.h"
#include "core/colour_count.h"
#include "core/colour_readout.h"
#include "core/display_geometry.h"
#include "core/file_kinds.h"
#include "core/image_info.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"

#include <numeric>

namespace {

TEST(ShownPicture, SizesShown) {
  // z: zoomed, a: 1:2 by hand, o: automatic ratio off
  using Row = std::tuple<const char *, int32_t, int32_t, std::string, const char *>;
  for (const auto &[extension, width, height, options, shown] :
       {Row{".SC7", 512, 212, "z", "512x424 in 516x428, 1:2"}, Row{".SC7", 512, 212, "zo", "512x212 in 516x216"},
        Row{".SC7", 512, 212, "ao", "512x424 in 516x428, 1:2"}, Row{".G9B", 512, 211, "", "512x211 in 516x215"},
        Row{".G9B", 511, 212, "", "511x212 in 515x216"}, Row{".SC5", 256, 212, "za", "512x848 in 516x852, 1:2"},
        Row{".SC5", 256, 212, "", "256x212 in 260x216"}, Row{".GL5", 256, 256, "z", "512x512 in 516x516"},
        Row{".GL5", 257, 100, "z", "257x100 in 261x196"}, Row{".GL5", 100, 257, "z", "100x257 in 260x261"},
        Row{".PCT", 512, 704, "", "233x320 in 260x324"}, Row{".PCT", 512, 704, "za", "233x640 in 260x644, 1:2"},
        Row{".PCT", 256, 256, "z", "233x233 in 260x237"}}) {
    ViewerState viewer;
    WindowModel &window = viewer.window;
    viewer.pictureShown = kTrue;
    viewer.pictureKind = findFileKind(extension);
    viewer.frameWidth = width;
    viewer.frameHeight = height;
    viewer.zoomMode = options.starts_with('z');
    window.menuDoubleHeight.checked = options.find('a') != std::string::npos;
    viewer.preferences.Check5 = toFlag(options.ends_with('o'));
    window.readout.text = "old";
    ApplyDisplayGeometry(viewer);
    std::ostringstream text;
    text << window.stretch.targetWidth << "x" << window.stretch.targetHeight << " in " << window.mainViewWidth << "x"
         << window.mainViewHeight << (window.menuDoubleHeight.checked ? ", 1:2" : "") << window.readout.text;
    EXPECT_EQ(text.str(), shown) << options;
    EXPECT_TRUE(window.stretch.sourceWidth == width && window.stretch.sourceHeight == height);
    EXPECT_EQ(window.pictureSerial, 1u);
  }
}

// Pixels of colours 1, 15, 2 and 3, then 0; colours 1 and 2 are the same.
Bytes twinColours() {
  const Bytes palette{0x00, 0x00, 0x21, 0x03, 0x21, 0x03, 0x70, 0x00};
  return BloadBuilder{.body = withBytesAt(withBytesAt({0x1F, 0x23}, 0x7680, palette), 0x7680 + 30, {0x77, 0x07})}
      .build();
}

TEST(ShownPicture, ColourUnderTheMouse) {
  const Bytes twins = twinColours();
  // Y 30, 30, 2, 0; J and K are 0; in the next group bits 3 are set: colours 15 and 1.
  const Bytes groups = BloadBuilder{.body = {0xF0, 0xF0, 0x10, 0x00, 0xF8, 0x18}}.build();
  using Row = std::tuple<const char *, Bytes, uint8_t, int32_t, int32_t, const char *>; // zoomed, x, y
  for (const auto &[path, file, zoomed, x, y, text] :
       {Row{"a.SC5", twins, 1, 1, 1, "0, 0   color 1   #496D24   R2 G3 B1"},
        Row{"a.SC5", twins, 1, 4, 0, "2, 0   color 2   #496D24   R2 G3 B1"},
        Row{"a.SC5", twins, 1, 511, 423, "255, 211   color 0   #000000   R0 G0 B0"}, Row{"a.SC5", twins, 1, 512, 0, ""},
        Row{"a.SC5", twins, 1, 0, 424, ""}, Row{"a.SC5", twins, 1, -1, 0, ""}, Row{"a.SC5", twins, 1, 0, -1, ""},
        Row{"a.SC5", twins, 0, 2, 0, "2, 0   color 2   #496D24   R2 G3 B1"},
        Row{"a.SC7", twins, 1, 3, 3, "3, 1   color 0   #000000   R0 G0 B0"}, // lines shown twice
        Row{"a.SCC", groups, 0, 3, 0, "3, 0   #000000   R0 G0 B0"},          // black, as color 0 is
        Row{"a.SCA", groups, 0, 0, 0, "0, 0   #F0F0F8"},
        Row{"a.SCA", groups, 0, 4, 0, "4, 0   color 15   #FFFFFF   R7 G7 B7"}}) {
    TestViewer window;
    window.viewer.zoomMode = zoomed;
    window.open(path, file);
    const std::string before = pictureText(window.viewer);
    for (const int32_t scale : {12, 1}) {
      window.viewer.window.scale = scale;
      window.viewer.window.readout = {"old", 1};
      moveMouse(window.viewer, x * scale + scale - 1, y * scale + scale - 1);
      EXPECT_EQ(window.viewer.window.readout.text, text) << path;
    }
    const std::string colour = colourCode(window.viewer.window.readout.colour);
    EXPECT_TRUE(std::string_view(text).find(colour) != std::string_view::npos || *text == '\0') << colour;
    EXPECT_EQ(pictureText(window.viewer), before);
  }
}

TEST(ShownPicture, ColourUnderTheMouseWithoutAnEntry) {
  TestViewer window;
  window.open("a.SC5", twinColours());
  window.viewer.palette[2] = 0; // Load Palette leaves a palette that is not drawn
  moveMouse(window.viewer, 4, 0);
  EXPECT_EQ(window.viewer.window.readout.text, "2, 0   #496D24   R2 G3 B1");
  for (const auto &[column, line, text] : {std::tuple(0, 0, "0, 0   color 1   #496D24   R2 G3 B1"),
                                           {2, 0, "2, 0   #496D24   R2 G3 B1"},
                                           {256, 0, ""},
                                           {0, 212, ""},
                                           {-1, 1, ""}}) {
    moveMouseToPixel(window.viewer, column, line);
    EXPECT_EQ(window.viewer.window.readout.text, text);
  }
  moveMouse(window.viewer, 4, 0);
  leaveMouse(window.viewer);
  EXPECT_EQ(window.viewer.window.readout.text, "");
}

// What the commands on the picture leave.
std::string seen(TestViewer &window) {
  for (const char letter : std::string_view("TRZA")) window.pressCtrl(letter);
  moveMouse(window.viewer, 1, 4);
  return pictureText(window.viewer) + std::to_string(shownColourCount(window.viewer)) + bitmapPath(window.viewer) +
         window.viewer.window.readout.text;
}

TEST(ShownPicture, GoesByItsOwnKindAfterAFileThatIsNotShown) {
  const Bytes half{'G', '9', 'B', 11, 0, 16, 0x80, 2, 100, 0, 50, 0, 2}, bad{1, 2, 3};
  for (const auto &[path, file] : {std::pair{"a.GL5", joined({word(11), word(9), noise(50, 1)})},
                                   {"a.SC2", BloadBuilder{.body = noise(0x3800, 2)}.build()}}) {
    for (const char *other : {"x.GL7", "x.PCT", "x.HAM", "x.TXT", "x.VID", "x.G9B"}) {
      TestViewer quiet, window;
      quiet.open(path, file);
      window.open(path, file);
      window.open(other, other == std::string("x.G9B") ? half : bad);
      EXPECT_EQ(seen(window), seen(quiet)) << path << " " << other;
    }
  }
}

TEST(ShownPicture, ColourCount) {
  std::vector<uint32_t> words(200000);
  for (uint32_t i = 0; i < 200000; ++i) words[i] = i % 100000 * 167 | i << 24; // the top byte is no colour
  EXPECT_EQ(CountUniqueColours(words), 100000);
  using Row = std::tuple<const char *, int16_t, uint32_t, const char *>;
  for (const auto &[extension, bitsPerPixel, counted, shown] :
       {Row{".SC5", 4, 0, " 0"}, Row{".SC5", 4, 17, " 16"}, Row{".SC6", 2, 5, " 4"}, Row{".G9B", 16, 65537, " 65536"},
        Row{".SC2", 1, 3, " 3"}, Row{".SC2", 1, 17, " 16"}, Row{".PCT", 1, 2, " 2"}, Row{".PCT", 1, 3, " 2"},
        Row{".PCT", 1, 4, " 4"}, Row{".HAM", 4, 500, " 500"}, Row{".VID", 4, 0, "-1"}, Row{".VID", 4, 18, " 16"}}) {
    TestViewer window;
    window.viewer.pictureKind = findFileKind(extension);
    window.viewer.picture.bitsPerPixel = bitsPerPixel;
    window.viewer.frameBits.resize(counted);
    std::iota(window.viewer.frameBits.begin(), window.viewer.frameBits.end(), 0u);
    menuCountColors_Click(window.viewer);
    EXPECT_TRUE(window.platform.log[0].ends_with(std::string("unique colors in this image is") + shown + "."))
        << extension << " " << counted << ": " << window.platform.log[0];
  }
}

TEST(ShownPicture, ImageInfo) {
  std::string numbers;
  for (const int64_t number : {999, 1000, 1000000, -999, -1000}) numbers += withThousandsSeparators(number) + " ";
  EXPECT_EQ(numbers, "999 1,000 1,000,000 -999 -1,000 ");
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
    window.pressCtrl('I');
    EXPECT_EQ(window.platform.log.back(), std::string("showText Image Info\n") + text);
  }
}

TEST(ShownPicture, IsSavedAndCopiedAtItsOwnSizeOrAsBefore) {
  TestViewer window;
  window.open("d\\a.SC7", BloadBuilder{.body = {0x1F}}.build());
  window.pressCtrl('S');
  const Bytes file = memoryDisk().at("d\\a.bmp");
  const ColourReadout &readout = window.viewer.window.readout;
  leaveMouse(window.viewer); // into the menu, and back to where it stays
  for (const int32_t x : {5, 5, 6}) {
    EXPECT_TRUE(readout.text == "Saved as a.bmp" && !showsColour(readout)) << readout.text;
    moveMouse(window.viewer, x, 7);
  }
  EXPECT_TRUE(readout.text.starts_with("6, 3 ") && showsColour(readout)) << readout.text;
  ASSERT_EQ(file.size(), 54u + 512 * 212 * 3);
  FileOps broken = memoryFiles();
  broken.write = [](OutputHandle, std::span<const uint8_t>) { return std::string("disk is broken"); };
  window.viewer.platform.files = &broken;
  memoryDisk()["d\\a.bmp"] = {1};
  window.pressCtrl('S');
  EXPECT_EQ(window.platform.log.back(), "showMessage (!) Korilan: Could not save d\\a.bmp\n\ndisk is broken");
  EXPECT_EQ(memoryDisk().at("d\\a.bmp"), Bytes{1});
  for (const auto &[held, block] : {std::pair{true, 0}, {false, 1}, {false, 2}, {false, 0}}) {
    window.platform.clipboardHeld = held;
    scarceMemory() = {.beyond = 300'000, .refusedBlock = block};
    window.pressCtrl('C');
    scarceMemory() = {};
    const bool copied = !held && block == 0;
    EXPECT_EQ(window.platform.log.back().starts_with("showMessage (!) Korilan: Could not copy: "), !copied);
    EXPECT_EQ(window.platform.clipboard, copied ? Bytes(file.begin() + 14, file.end()) : Bytes());
    EXPECT_EQ(window.platform.clipboardV5.size(), copied ? file.size() - 54 + 124 : 0);
  }
}

} // namespace
