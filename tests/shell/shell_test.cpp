// The window of Korilan.exe, held against the core over the headless platform.
#include "core/bitmap_export.h"
#include "core/commands.h"
#include "core/colour_count.h"
#include "shell/control_ids.h"
#include "shell/shown_sample.h"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr char kStartMenus[] = "File/Open Ctrl+O\n"
                               "File/Reload F5 grey\n"
                               "File/Close Ctrl+W grey\n"
                               "File/Save as Bitmap Ctrl+S grey\n"
                               "File/Copy to Clipboard Ctrl+C grey\n"
                               "File/Preferences Ctrl+E\n"
                               "File/Exit Ctrl+Q\n"
                               "View grey\n"
                               "View/Zoom Ctrl+Z grey checked\n"
                               "View/1:2 Aspect  Ratio Ctrl+A grey\n"
                               "View/Image Info Ctrl+I grey\n"
                               "View/Count Colors Ctrl+N grey\n"
                               "Palette/View Palette Ctrl+P grey\n"
                               "Palette/Load Palette Ctrl+L grey\n"
                               "Palette/Store Palette Ctrl+T grey\n"
                               "Palette/Restore Palette Ctrl+R grey\n"
                               "Help/Help F1\n"
                               "Help/About\n";

// The menus of a picture with a palette of 16 colours, shown for the first time.
constexpr char kPictureMenus[] = "File/Open Ctrl+O\n"
                                 "File/Reload F5\n"
                                 "File/Close Ctrl+W\n"
                                 "File/Save as Bitmap Ctrl+S\n"
                                 "File/Copy to Clipboard Ctrl+C\n"
                                 "File/Preferences Ctrl+E\n"
                                 "File/Exit Ctrl+Q\n"
                                 "View/Zoom Ctrl+Z checked\n"
                                 "View/1:2 Aspect  Ratio Ctrl+A\n"
                                 "View/Image Info Ctrl+I\n"
                                 "View/Count Colors Ctrl+N\n"
                                 "Palette/View Palette Ctrl+P\n"
                                 "Palette/Load Palette Ctrl+L\n"
                                 "Palette/Store Palette Ctrl+T\n"
                                 "Palette/Restore Palette Ctrl+R grey\n"
                                 "Help/Help F1\n"
                                 "Help/About\n";

TEST(Shell, EmptyWindow) {
  const DrivenWindow driven("");
  ASSERT_NE(driven.window, nullptr);
  EXPECT_EQ(textOf(driven, 0), "Korilan");
  for (int label = 0; label < 4; ++label) EXPECT_EQ(textOf(driven, kLabel1Id + label), "");
  EXPECT_EQ(menusOf(driven), kStartMenus);
  EXPECT_EQ(mainViewSize(driven).cx, 516);
  EXPECT_EQ(mainViewSize(driven).cy, 428);
  choose(driven, "Close"); // grey: nothing happens
  choose(driven, "Exit");
  EXPECT_EQ(exitCodeOf(driven), 0);
}

TEST(Shell, PictureFromTheCommandLineToTheClipboard) {
  const TemporaryFolder folder("shell picture"); // the path is handed over in quotes
  const SampleFile picture(folder, sampleNamed("odd/日本の城.SC5"));
  const DrivenWindow driven("\"" + picture.path + "\"");
  ASSERT_NE(driven.window, nullptr);
  expectTexts(driven, picture.model);
  expectPicture(driven, picture.viewer);

  EXPECT_EQ(menusOf(driven), kPictureMenus);

  const auto bitmap = encodeBitmap(picture.viewer.frameBits, 256, 212);
  choose(driven, "Save as Bitmap");
  EXPECT_TRUE(waitUntil([&] { return folder.read(u8"日本の城.bmp") == bitmap; }));
  choose(driven, "Copy to Clipboard");
  const std::vector<uint8_t> copied(bitmap.begin() + kBitmapFileHeaderBytes, bitmap.end());
  EXPECT_TRUE(waitUntil([&] { return clipboardBytes(CF_DIB) == copied; }));
  EXPECT_TRUE(clipboardBytes(CF_DIBV5) == encodeBitmapV5(picture.viewer.frameBits, 256, 212));

  const std::string count = std::to_string(shownColourCount(picture.viewer));
  choose(driven, "Count Colors");
  EXPECT_EQ(answerMessage(driven, "Image Color Count"), "The amount of unique colors in this image is " + count + ".");

  choose(driven, "Close");
  EXPECT_TRUE(waitUntil([&] { return textOf(driven, 0) == "Korilan"; }));
  for (int label = 0; label < 4; ++label) EXPECT_EQ(textOf(driven, kLabel1Id + label), "");
  EXPECT_EQ(menusOf(driven), kStartMenus);
  PostMessageA(driven.window, WM_CLOSE, 0, 0);
  EXPECT_EQ(exitCodeOf(driven), 0);
}

TEST(Shell, DroppedFilesShowEverySampleOrLeaveThePictureAlone) {
  const TemporaryFolder folder("shell_drop");
  const SampleFile first(folder, sampleNamed("odd/Picture.Sc8"));
  DrivenWindow driven(first.path);
  ASSERT_NE(driven.window, nullptr);
  expectPicture(driven, first.viewer);

  dropFile(driven, folder.write(u8"cartridge.SCC", {'A', 'B', 0x10, 0x40}));
  EXPECT_TRUE(waitUntil([&] { return textOf(driven, kLabel1Id + 3) == "*** Error: Not a valid .SCC file."; }));
  EXPECT_EQ(textOf(driven, 0), "Korilan - cartridge.SCC");
  EXPECT_EQ(textOf(driven, kLabel1Id), "256x212");
  expectPicture(driven, first.viewer);

  dropFile(driven, folder.write(u8"letter.txt", {'H', 'i'}));
  EXPECT_EQ(textOf(driven, 0), "Korilan - cartridge.SCC");
  const auto core = std::make_unique<OpenedFile>(); // a video's size depends on the one before
  openFile(*core, first.path);
  for (const samples::SamplePicture &sample : allSamples()) {
    if (sample.width == 0) continue;
    const SampleFile picture(folder, sample);
    menuClose_Click(core->viewer);
    openPath(core->viewer, picture.path);
    choose(driven, "Close"); // video memory is clear again, as in the core that has just started
    dropFile(driven, picture.path);
    // A drop that comes while the window is still busy is ignored.
    if (!waitUntil([&] { return textOf(driven, 0) == core->viewer.window.caption; })) dropFile(driven, picture.path);
    expectTexts(driven, core->viewer.window);
    expectPicture(driven, core->viewer);
  }
  choose(driven, "Exit");
  EXPECT_EQ(exitCodeOf(driven), 0);
}

TEST(Shell, CoveredAndUncoveredPictureStandsAgain) {
  const TemporaryFolder folder("shell_cover");
  const SampleFile picture(folder, sampleNamed("odd/Desk.sR7"));
  const DrivenWindow driven(picture.path);
  ASSERT_NE(driven.window, nullptr);
  expectPicture(driven, picture.viewer);
  EXPECT_NE(menusOf(driven).find("1:2 Aspect  Ratio Ctrl+A checked"), std::string::npos);
  RECT place{};
  GetWindowRect(driven.window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const HWND cover = CreateWindowExA(WS_EX_TOPMOST, "STATIC", "", WS_POPUP | WS_VISIBLE, place.left, place.top, width,
                                     height, nullptr, nullptr, nullptr, nullptr);
  UpdateWindow(cover);
  SetWindowPos(driven.window, nullptr, 20, 10, width + 100, height + 60, SWP_NOZORDER | SWP_NOACTIVATE);
  DestroyWindow(cover);
  expectPicture(driven, picture.viewer);
}

} // namespace

int main(int argumentCount, char **arguments) {
  ::testing::InitGoogleTest(&argumentCount, arguments);
  if (argumentCount != 3) return 2;
  const auto absolute = [](const char *path) {
    std::array<char, MAX_PATH> full{};
    return std::string(full.data(), GetFullPathNameA(path, full.size(), full.data(), nullptr));
  };
  shellPaths = {.viewer = absolute(arguments[1]), .probe = absolute(arguments[2])};
  const UnmanagedWindows unmanaged;
  return RUN_ALL_TESTS();
}
