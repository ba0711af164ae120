#include "core/colour_readout.h"
#include "core/image_info.h"
#include "core/palette_commands.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

// Pixels of colours 1, 15, 2 and 3, then 0; colours 1 and 2 are the same.
Bytes twinColours() {
  const Bytes palette{0x00, 0x00, 0x21, 0x03, 0x21, 0x03, 0x70, 0x00};
  Bytes body = withBytesAt({0x1F, 0x23}, 0x7680, palette);
  body = withBytesAt(body, 0x7680 + 30, {0x77, 0x07});
  return BloadBuilder{.body = body}.build();
}

TEST(ColourReadout, WhatIsUnderTheMouse) {
  // File, zoomed, mouse, what is shown
  using Row = std::tuple<const char *, const char *, Bytes, bool, int32_t, int32_t, const char *, uint32_t>;
  const Bytes twins = twinColours();
  // Y 30, 30, 2, 0; J and K are 0; in the next group bits 3 are set: colours 15 and 1.
  const Bytes groups = BloadBuilder{.body = {0xF0, 0xF0, 0x10, 0x00, 0xF8, 0x18}}.build();
  const Bytes screen8 = BloadBuilder{.body = {0xE0}}.build();
  for (const auto &[name, path, file, zoomed, x, y, text, colour] :
       {Row{"colour 1", "a.SC5", twins, true, 0, 0, "0, 0   color 1   #496D24", 0x496D24},
        Row{"last mouse place on it", "a.SC5", twins, true, 1, 1, "0, 0   color 1   #496D24", 0x496D24},
        Row{"colour 2, same as 1", "a.SC5", twins, true, 4, 0, "2, 0   color 2   #496D24", 0x496D24},
        Row{"last pixel", "a.SC5", twins, true, 511, 423, "255, 211   color 0   #000000", 0},
        Row{"right of it", "a.SC5", twins, true, 512, 0, "", 0}, Row{"below it", "a.SC5", twins, true, 0, 424, "", 0},
        Row{"left of it", "a.SC5", twins, true, -1, 0, "", 0}, Row{"above it", "a.SC5", twins, true, 0, -1, "", 0},
        Row{"own size", "a.SC5", twins, false, 2, 0, "2, 0   color 2   #496D24", 0x496D24},
        Row{"right of the own size", "a.SC5", twins, false, 256, 0, "", 0},
        Row{"lines shown twice", "a.SC7", twins, true, 3, 3, "3, 1   color 0   #000000", 0},
        Row{"no palette", "a.SC8", screen8, true, 0, 0, "0, 0   #00FC00", 0x00FC00},
        Row{"YJK", "a.SCC", groups, false, 2, 0, "2, 0   #101014", 0x101014},
        Row{"YJK black, as colour 0 is", "a.SCC", groups, false, 3, 0, "3, 0   #000000", 0},
        Row{"YJK group of a YAE picture", "a.SCA", groups, false, 0, 0, "0, 0   #F0F0F8", 0xF0F0F8},
        Row{"palette pixel of a YAE picture", "a.SCA", groups, false, 4, 0, "4, 0   color 15   #FFFFFF", 0xFFFFFF}}) {
    SCOPED_TRACE(name);
    TestViewer window;
    if (!zoomed) menuZoom_Click(window.viewer);
    window.open(path, file);
    window.viewer.window.readout = {"old", 1};
    moveMouse(window.viewer, x, y);
    EXPECT_EQ(window.viewer.window.readout.text, text);
    EXPECT_EQ(window.viewer.window.readout.colour, colour);
  }
}

TEST(ColourReadout, FollowsWhatHappensToThePicture) {
  TestViewer window;
  const std::string &text = window.viewer.window.readout.text;
  const auto pointed = [&] {
    moveMouse(window.viewer, 4, 0);
    return text;
  };
  EXPECT_EQ(pointed(), ""); // before any picture
  window.open("a.SC5", twinColours());
  for (const char *refused : {"b.SC6", "d.TXT"}) { // the picture stays, known already or not
    window.open(refused, {1, 2, 3});
    EXPECT_EQ(pointed(), "2, 0   color 2   #496D24") << refused;
  }
  leaveMouse(window.viewer);
  EXPECT_EQ(text, "");

  window.platform.events.push_back({[](ViewerState &viewer, const std::string &) { moveMouse(viewer, 4, 0); }, ""});
  window.open("b.SC5", BloadBuilder{.body = {0xFF, 0xFF}}.build());
  EXPECT_EQ(text, ""); // while it was loaded
  EXPECT_EQ(pointed(), "2, 0   color 15   #FFFFFF");
  menuClose_Click(window.viewer);
  EXPECT_EQ(text + pointed(), "");
}

// Its colour stays known where the palette, or what video memory now holds, is that of no picture.
TEST(ColourReadout, NamesNoEntryOfAnotherPicture) {
  struct Row {
    const char *name;
    void (*change)(TestViewer &window);
    const char *text;
  };
  for (const Row &row : {Row{"nothing", [](TestViewer &) {}, "2, 0   color 2   #496D24"},
                         Row{"refused palette, so the standard one",
                             [](TestViewer &window) {
                               memoryDisk()["p.PL5"] = Bytes(32, 0xFF);
                               window.platform.chosenFiles = {"p.PL5"};
                               menuLoadPal_Click(window.viewer);
                             },
                             "2, 0   #496D24"},
                         Row{"refused picture of the same width",
                             [](TestViewer &window) {
                               window.open("b.G9B", {'G', '9', 'B', 11, 0, 4, 0, 16, 0, 1, 100, 0, 2});
                               EXPECT_EQ(window.viewer.imageHeight, 100);
                             },
                             "2, 0   #496D24"},
                         Row{"refused picture of another width",
                             [](TestViewer &window) {
                               window.open("b.G9B", {'G', '9', 'B', 11, 0, 4, 0, 16, 100, 0, 212, 0, 2});
                               EXPECT_EQ(window.viewer.imageWidth, 100);
                             },
                             "2, 0   #496D24"},
                         Row{"no pixels", [](TestViewer &window) { window.viewer.frameBits.clear(); }, ""}}) {
    TestViewer window;
    window.open("a.SC5", twinColours());
    row.change(window);
    moveMouse(window.viewer, 4, 0);
    EXPECT_EQ(window.viewer.window.readout.text, row.text) << row.name;
  }
}

TEST(ImageInfo, Lines) {
  using Row = std::tuple<const char *, const char *, Bytes, const char *>;
  const Bytes packed = BloadBuilder{.identifier = 0xFD, .body = {0x00}}.build();
  for (const auto &[name, path, file, text] :
       {Row{"packed", "d\\a.SR7", packed,
            "File name:\ta.SR7\nFolder:\td\\\nSize on disk:\t8 bytes\nType:\tScreen 7 BLOAD file (compressed)\n"
            "Size:\t512 x 212 pixels\nDepth:\t4 bits per pixel\nColors:\t16 colors\nPalette:\tyes, 16 colors\n"},
        Row{"no palette", "a.SCC", BloadBuilder{.body = Bytes(993)}.build(),
            "File name:\ta.SCC\nFolder:\t\nSize on disk:\t1,000 bytes\nType:\tScreen12 BLOAD file (raw bitmap)\n"
            "Size:\t256 x 212 pixels\nDepth:\t8 bits per pixel\nColors:\tYJK colors\nPalette:\tno\n"}}) {
    SCOPED_TRACE(name);
    TestViewer window;
    window.open(path, file);
    window.platform.log.clear();
    menuImageInfo_Click(window.viewer);
    EXPECT_EQ(window.platform.log, std::vector<std::string>{std::string("showText Image Info\n") + text});

    window.open("bad.SC6", {1, 2, 3});
    const std::string still = std::string("Picture shown:\tstill that of ") + path + "\n";
    EXPECT_TRUE(imageInfo(window.viewer).find(still) != std::string::npos) << imageInfo(window.viewer);
  }
}

} // namespace
