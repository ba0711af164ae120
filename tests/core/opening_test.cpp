#include "core/opening.h"

#include "support/bytes.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"
#include "video/eva_player.h"

#include <gtest/gtest.h>

namespace {

const Bytes kPicture = BloadBuilder{.body = {0x1F, 0x23}}.build();

// Texts, menus, a digit a mark (the last four: a video's), places in the file and in video memory, sizes.
std::string windowText(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  std::string text = window.caption + "|" + viewer.typeDescription + "|" + window.Label1 + "|" + window.Label2 + "|" +
                     window.Label3 + "|" + window.Label4 + "|" + window.readout.text + "|" + menuText(window);
  for (const bool marked :
       {window.menuReload.enabled, window.menuZoom.enabled, window.menuDoubleHeight.enabled, window.menuZoom.checked,
        window.menuDoubleHeight.checked, viewer.fileLoaded == kTrue, viewer.pictureShown == kTrue,
        viewer.inputFile.handle != nullptr, window.menuViewPal.checked, window.Label5[15].visible,
        viewer.player != nullptr, window.Image1.visible, window.Image2.visible, window.HScroll1.visible}) {
    text += marked ? "1" : "0";
  }
  for (const int32_t number : {viewer.paletteFilePos, viewer.vramPos, window.mainViewWidth, window.mainViewHeight,
                               window.stretch.targetWidth, window.stretch.targetHeight}) {
    text += " " + std::to_string(number);
  }
  return text;
}

// Marks and places as no file leaves them.
void disturb(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  viewer.player = &kEvaPlayer;
  window.Image1.visible = window.Image2.visible = window.HScroll1.visible = true;
  window.menuZoom.enabled = window.menuDoubleHeight.enabled = false;
  window.menuRestPal.enabled = window.menuViewPal.checked = true;
  window.Label5.fill({.visible = true});
  window.readout.text = "old";
  viewer.paletteFilePos = viewer.vramPos = 1;
}

TEST(Opening, EmptyWindowAtStartUpAndAfterClose) {
  TestViewer window;
  ViewerState &viewer = window.viewer;
  EXPECT_EQ(windowText(viewer), "Korilan|||||||01110000000000 0 0 516 428 0 0");
  EXPECT_EQ(viewer.zoomMode, 1);
  window.open("packed.SR7", BloadBuilder{.identifier = 0xFD, .body = {0, 0, 0x1F}}.build());
  EXPECT_EQ(windowText(viewer), "Korilan - packed.SR7|Screen 7 BLOAD file|512x212|4 bpp|16 colors|||Close Save Copy "
                                "View ViewPal LoadPal SavePal 11111111000000 64136 54272 516 428 512 424");
  disturb(viewer);
  const uint32_t serial = viewer.window.pictureSerial;
  menuClose_Click(viewer);
  EXPECT_EQ(windowText(viewer), "Korilan|Screen 7 BLOAD file||||||01110000000000 0 0 516 428 0 0");
  EXPECT_NE(viewer.window.pictureSerial, serial);
  EXPECT_EQ(bytesOf(viewer.vram), Bytes(1 << 20));
  EXPECT_EQ(bytesOf(viewer.packedData), Bytes(1 << 20));
}

TEST(Opening, NamesOfTheFile) {
  struct Row {
    std::string folder, name, extension;
    bool opened = true;
  };
  for (const Row &row :
       {Row{"", ".SC5", "", false}, Row{"", "a.sC5", ".SC5"},
        Row{"", "\u00E9.SC", "", false}, // four characters of five bytes
        Row{"\u00E9\\", "\u00E9.sc5", ".SC5"}, Row{"", "a.SC5 ", "SC5 ", false},
        Row{"", "ab\u65E5\u672C\u8A9E", "B\u65E5\u672C\u8A9E", false}, Row{"C:\\one\\two x\\", "a b.SC5", ".SC5"}}) {
    SCOPED_TRACE(row.folder + row.name);
    TestViewer window;
    window.open(row.folder + row.name, kPicture);
    EXPECT_EQ(window.viewer.fileExtension, row.extension);
    EXPECT_EQ(window.viewer.pictureShown, toFlag(row.opened));
    EXPECT_EQ(window.viewer.folderPath + "|" + window.viewer.fileName, row.opened ? row.folder + "|" + row.name : "|");
  }
}

TEST(Opening, AFileThatIsIgnoredOrRefusedLeavesThePicture) {
  // Caption, type and status are those of the refused file, and no video is open any more.
  const std::string ignored = "Korilan - good.SC7|Screen 7 BLOAD file|512x212|4 bpp|16 colors|old|old|";
  const std::string refused = "|512x212|4 bpp|16 colors|*** Error: Not a valid .SC6 file.|old|";
  const std::string menus = "Close Save Copy View ViewPal LoadPal SavePal RestPal ";
  for (const auto &[path, text] : {std::pair{".SC5", ignored + menus + "10011111111111 1 1 516 428 512 424"},
                                   {"good.txt", ignored + menus + "10010111111111 1 1 516 428 512 424"},
                                   {"d\\none.SC6", "Korilan - none.SC6|Screen 6 BLOAD file" + refused + menus +
                                                       "11110110110000 0 0 516 428 512 424"},
                                   {"d\\bad.SC6", "Korilan - bad.SC6|Screen 6 BLOAD file" + refused + menus +
                                                      "11110111110000 0 0 516 428 512 424"}}) {
    TestViewer window;
    ViewerState &viewer = window.viewer;
    window.open("good.SC7", kPicture);
    disturb(viewer);
    viewer.window.Label4 = "old";
    memoryDisk()["d\\bad.SC6"] = {0x00};
    const std::string before = pictureText(viewer);
    openPath(viewer, path);
    EXPECT_EQ(windowText(viewer), text);
    EXPECT_EQ(pictureText(viewer), before);
    EXPECT_EQ(viewer.loadError, viewer.window.Label4 == "old" ? "" : viewer.window.Label4);
    window.open("good.SC7", kPicture);
    EXPECT_EQ(viewer.loadError, "");
  }
}

TEST(Opening, ThePictureBeforeStaysIfThereIsNotEnoughMemory) {
  for (const int refused : {1, 2}) { // video memory, frame
    TestViewer window;
    window.open("before.SC8", BloadBuilder{.body = {0x1C}}.build());
    const std::vector<uint32_t> before = window.viewer.frameBits;
    scarceMemory() = {.refusedBlock = refused};
    window.open("large.G9B", joined({{'G', '9', 'B', 11, 0, 16, 0, 0}, word(1000), word(600), Bytes(4)}));
    EXPECT_EQ(scarceMemory().largeBlocks, refused);
    scarceMemory() = {};
    EXPECT_EQ(window.viewer.loadError, "*** Error: Not enough memory.");
    EXPECT_TRUE(window.viewer.frameBits == before && window.viewer.frameWidth == 256);
    menuReload_Click(window.viewer);
    EXPECT_EQ(window.viewer.frameBits.size(), 600'000u);
  }
}

TEST(Opening, CommandLineHoldsAtMostOnePath) {
  using Row = std::pair<const char *, std::optional<std::string>>;
  for (const auto &[commandLine, path] :
       {Row{"", std::nullopt}, Row{"\"", ""}, Row{"C:\\one two\\a.SC5", "C:\\one two\\a.SC5"},
        Row{"\"C:\\a b.SC5\"", "C:\\a b.SC5"}, Row{"\"a.SC5\" \"b.SC5\"", std::nullopt},
        Row{"\"a.SC5\"  \"b\"", "a.SC5\"  \"b"}, // two blanks pass
        Row{"C:\\a.SC5 D:\\b.SC5", std::nullopt}, Row{"abcd:f", "abcd:f"}, Row{"abcde:", std::nullopt},
        Row{"\u00E9\u00E9cd:f", "\u00E9\u00E9cd:f"}}) {
    TestViewer window;
    startViewer(window.viewer, commandLine);
    EXPECT_EQ(pathFromCommandLine(commandLine), path) << commandLine;
    EXPECT_EQ(window.viewer.filePath, path.value_or("")) << commandLine;
  }
}

} // namespace
