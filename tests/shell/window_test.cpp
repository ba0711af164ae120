// The window held against the viewer without a window.
#include "cli/opened_file.h"
#include "core/display_geometry.h"
#include "core/file_kinds.h"
#include "shell/differences.h"

#include <commctrl.h>

namespace {

TEST(Window, AFileOfEachKindIsShownOrRefused) {
  ShellWindow window("");
  OpenedFile wanted;
  openInput(wanted, {.path = ""});
  const auto expectShown = [&](const std::string &path) {
    window.drop(path);
    openPath(wanted.viewer, path);
    EXPECT_EQ(differences(window, wanted.viewer), "") << path;
  };
  for (const FileKind &kind : kFileKinds) expectShown(writeSample(window.folder, kind.extension));
  expectShown(window.folder.write(u8"日本.SCC", {'A', 'B', 0x10, 0x40}));
}

TEST(Window, SwatchesAndReadOutShowColours) {
  ShellWindow window("WHEEL.GL5"); // 101x77, shown twice as large
  window.choose("View Palette");
  EXPECT_TRUE(window.viewer.window.Label5[15].visible);
  NMTTDISPINFOW tip{};
  tip.hdr = {nullptr, reinterpret_cast<UINT_PTR>(window.control(kLabel5Id + 2)), static_cast<UINT>(TTN_GETDISPINFOW)};
  SendMessageA(window.main.window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&tip));
  EXPECT_STREQ(tip.szText, L"Color 2: #24DA24   R1 G6 B1");
  EXPECT_EQ(differences(window), "");
  const std::vector<std::pair<POINT, std::string>> rows{
      {{0, 0}, "0, 0 "}, {{201, 153}, "100, 76 "}, {{202, 100}, ""}, {{57, 91}, "28, 45 "}, {{-1, -1}, ""}};
  const SIZE client = clientSizeOf(window.view);
  for (const auto &[place, text] : rows) {
    const LPARAM centred = MAKELPARAM(place.x + (client.cx - 202) / 2, place.y + (client.cy - 154) / 2);
    SendMessageA(window.view, place.x < 0 ? WM_MOUSELEAVE : WM_MOUSEMOVE, 0, centred);
    const std::string read = textOf(window.control(kReadoutId));
    EXPECT_TRUE(text.empty() ? read.empty() : read.starts_with(text)) << read;
    EXPECT_EQ(differences(window), "");
  }
}

TEST(Window, APictureLargerThanTheScreenScrolls) {
  ShellWindow window("PLASMA.HAM");
  window.choose("1:2 Aspect  Ratio");           // 960 lines and the labels
  EXPECT_EQ(clientSizeOf(window.view).cx, 512); // the bar has room beside it
  const int last = 960 - clientSizeOf(window.view).cy;
  const auto expectLine = [&](UINT message, WPARAM wParam, int line) {
    SendMessageA(window.view, message, wParam, 0);
    EXPECT_EQ(GetScrollPos(window.view, SB_VERT), line);
    EXPECT_EQ(differences(window), "") << line;
  };
  expectLine(WM_VSCROLL, SB_LINEDOWN, 32);
  expectLine(WM_KEYDOWN, VK_UP, 0);
  expectLine(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), std::min(last, 96));
  expectLine(WM_VSCROLL, SB_BOTTOM, last);
  SendMessageA(window.view, WM_MOUSEMOVE, 0, MAKELPARAM(10, 20));
  EXPECT_TRUE(window.viewer.window.readout.text.starts_with("10, " + std::to_string((20 + last) / 2) + " "));
}

TEST(Window, EveryScaleEnlargesEachPixel) {
  for (const char *name : {"COAST.SC5", "COAST.SC7", "SUNSET.EVA"}) {
    ShellWindow window(name);
    for (const int show : {SW_SHOWNORMAL, SW_MAXIMIZE}) {
      ShowWindow(window.main.window, show);
      for (size_t choice = 0; choice <= kScaleSteps.size() + 1; ++choice) {
        window.choose("Scale", choice);
        SendMessageA(window.view, WM_HSCROLL, SB_PAGEDOWN, 0);
        EXPECT_EQ(differences(window), "") << name << " " << choice;
      }
    }
  }
}

TEST(Window, CtrlWheelAndDraggingKeepThePixelUnderTheMouse) {
  ShellWindow window("COAST.SC5");
  const SIZE size = windowSizeOf(window.main.window);
  const auto pixelAt = [&](int x, int y) {
    SendMessageA(window.view, WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
    return window.viewer.window.readout.text;
  };
  POINT mouse{301, 157};
  const std::string before = pixelAt(mouse.x, mouse.y);
  ClientToScreen(window.view, &mouse);
  for (const int steps : {1, 3, -2, 4, -1, 3, -6, 2, 5, -3, 1, -2, 4, -7, 1, 3, -2, 6, -8, 9}) {
    for (const int turn : {steps * 40, steps * 80}) { // of a wheel finer than its notches
      SendMessageA(window.view, WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, turn), MAKELPARAM(mouse.x, mouse.y));
    }
    EXPECT_EQ(pixelAt(301, 157), before) << window.viewer.window.scale;
    EXPECT_EQ(differences(window), "");
  }
  EXPECT_EQ(windowSizeOf(window.main.window).cx, size.cx);
  SendMessageA(window.view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(301, 157));
  EXPECT_EQ(pixelAt(331, 97), before);
  SendMessageA(window.view, WM_LBUTTONUP, 0, 0);
  EXPECT_NE(pixelAt(301, 157), before);
}

TEST(Window, FollowsTheScaleUnlessSizedByHand) {
  ShellWindow window("WHEEL.GL5"); // 202x154
  const HWND main = window.main.window;
  const auto viewHeight = [&] { return clientSizeOf(window.view).cy; };
  RECT place{};
  GetWindowRect(main, &place);
  for (const auto &[dots, height] : {std::pair(192, 308), std::pair(96, kMinAreaHeight)}) {
    SendMessageA(main, WM_DPICHANGED, MAKEWPARAM(dots, dots), reinterpret_cast<LPARAM>(&place));
    EXPECT_GE(viewHeight(), height); // the frame does not take the new scale here
  }
  ShowWindow(main, SW_MAXIMIZE);
  window.press(VK_OEM_PLUS, true);
  EXPECT_TRUE(IsZoomed(main));
  ShowWindow(main, SW_RESTORE);
  EXPECT_EQ(viewHeight(), 308);

  SetWindowPos(main, nullptr, 0, 0, 700, 600, SWP_NOMOVE);
  window.press(VK_OEM_PLUS, true);
  window.drop(writeSample(window.folder, "COAST.SC5"));
  EXPECT_EQ(windowSizeOf(main).cy, 600);
  window.choose("Scale", kScaleSteps.size() + 1); // Fit
  EXPECT_EQ(window.viewer.window.scale, 1);
  SetWindowPos(main, nullptr, 0, 0, 1200, 1000, SWP_NOMOVE);
  EXPECT_EQ(window.viewer.window.scale, 2);
  EXPECT_EQ(differences(window), "");
  for (const int show : {SW_SHOWNORMAL, SW_MAXIMIZE}) {
    ShowWindow(main, show);
    window.choose("Fit Window to Picture");
    EXPECT_EQ(viewHeight(), 848);
    EXPECT_EQ(differences(window), "");
  }
  window.choose("Normal Scale");
  EXPECT_EQ(viewHeight(), 424);
}

TEST(Window, FollowsThePictureAndStaysOnTheScreen) {
  ShellWindow window("WHEEL.GL5", SW_SHOWMAXIMIZED);
  const std::string small = window.viewer.filePath, large = writeSample(window.folder, "PLASMA.HAM");
  const HWND main = window.main.window;
  window.drop(large);
  EXPECT_TRUE(IsZoomed(main));
  ShowWindow(main, SW_RESTORE);
  EXPECT_EQ(differences(window), "");
  const LONG height = windowSizeOf(main).cy;
  const RECT work = workAreaOf(main);
  RECT place{};
  for (const std::string &path : {small, large, std::string()}) {
    SetWindowPos(main, nullptr, work.right - 100, work.bottom - 100, 0, 0, SWP_NOSIZE);
    path.empty() ? void(SendMessageA(main, WM_DISPLAYCHANGE, 0, 0)) : window.drop(path);
    GetWindowRect(main, &place);
    EXPECT_TRUE(place.right == work.right && place.bottom == work.bottom) << path;
    EXPECT_EQ(windowSizeOf(main).cy == height, path != small);
  }
  const int letters = window.main.metrics.lineHeight;
  window.choose("Scale", 0); // at the start value the window would be fitted again
  place = {30, 40, 400, 500};
  SendMessageA(main, WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&place));
  EXPECT_NEAR(clientSizeOf(window.control(kLabel1Id)).cy, 2 * letters, 2);
  GetWindowRect(main, &place);
  EXPECT_TRUE(place.left == 30 && place.top == 40);
}

TEST(Window, TheFrameBarShowsTheFrameItIsMovedTo) {
  for (const char *name : {"SUNSET.EVA", "COAST.VID"}) {
    ShellWindow window(name);
    const int last = window.viewer.window.HScroll1.maximum;
    const std::vector<std::array<int, 2>> rows{{SB_PAGERIGHT, 12},       {SB_LINELEFT, 11},         {SB_RIGHT, last},
                                               {SB_PAGELEFT, last - 12}, {SB_LINERIGHT, last - 11}, {SB_LEFT, 0}};
    for (const auto &[request, frame] : rows) {
      SendMessageA(window.main.window, WM_HSCROLL, static_cast<WPARAM>(request), 0);
      EXPECT_EQ(window.viewer.window.HScroll1.value, frame) << name;
      EXPECT_EQ(differences(window), "") << name << " " << frame;
    }
  }
}

TEST(Window, SpacePlaysAndStopsWhereverTheFocusIs) {
  ShellWindow window("SUNSET.EVA");
  const auto shows = [&](bool playing, int leastFrame) {
    bool shown = false;
    const auto look = [&] {
      shown = videoPlaying(window.viewer) == playing && window.viewer.window.HScroll1.value >= leastFrame &&
              (IsWindowEnabled(window.control(kHScroll1Id)) == FALSE) == playing;
    };
    return waitUntil([&] { return window.run(look), shown; });
  };
  for (const int id : {kMainViewId, kImage1Id, kImage1Id + 1, kHScroll1Id}) {
    PostMessageA(window.control(id), WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_TRUE(shows(true, 1)) << id;
    PostMessageA(window.control(id), WM_KEYDOWN, VK_SPACE, 1 | KF_REPEAT << 16); // held down
    EXPECT_TRUE(shows(true, 3)) << id;
    PostMessageA(window.control(id), WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_TRUE(shows(false, 0)) << id;
  }
}

} // namespace
