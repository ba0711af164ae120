// The window held against the viewer without a window, what it does on the desktop, and Korilan.exe as a process.
#include "cli/opened_file.h"
#include "core/bitmap_export.h"
#include "core/display_geometry.h"
#include "core/file_kinds.h"
#include "core/image_info.h"
#include "shell/differences.h"
#include "shell/registry_settings.h"

#include <cstdlib>

#include <commctrl.h>
#include <dlgs.h>
#include <process.h>
#include <psapi.h>

namespace {

std::string korilanPath;

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

// Whether the next fifth of a second of the recording has sound.
bool soundFollows() {
  std::array<char, 44100 / 5> samples{};
  const char *path = std::getenv("KORILAN_RECORDING");
  const auto start = static_cast<std::streamoff>(std::filesystem::file_size(path));
  EXPECT_TRUE(waitUntil([&] {
    std::ifstream file(path, std::ios::binary);
    return static_cast<bool>(file.seekg(start).read(samples.data(), std::ssize(samples)));
  }));
  return std::ranges::count(samples, '\x80') < std::ssize(samples);
}

TEST(Sound, ARunIsShownAndHeardUntilItEnds) {
  ShellWindow window("SUNSET.EVA");
  for (const int button : {kImage1Id + 1, kImage1Id}) { // Stop, and Play, which does nothing in a run
    EXPECT_FALSE(soundFollows());
    PostMessageA(window.control(kImage1Id), BM_CLICK, 0, 0);
    EXPECT_TRUE(waitUntil(soundFollows));
    window.run([&] { EXPECT_EQ(videoPlaying(window.viewer) ? differences(window) : "no run", ""); });
    PostMessageA(window.control(button), BM_CLICK, 0, 0);
    EXPECT_TRUE(window.settles());
    EXPECT_EQ(differences(window), "");
    soundFollows(); // what is on its way
  }
  EXPECT_FALSE(soundFollows());
}

TEST(Desktop, ALetterActsAloneOnlyIfPreferencesAllowIt) {
  ShellWindow window("COAST.SC5");
  const auto zoomedAfter = [&](bool ctrl) { return window.press('Z', ctrl), window.viewer.window.menuZoom.checked; };
  EXPECT_TRUE(zoomedAfter(false));
  EXPECT_FALSE(zoomedAfter(true));
  EXPECT_EQ(differences(window), "");
  window.viewer.preferences.Check4 = kTrue;
  EXPECT_TRUE(zoomedAfter(false));
}

std::vector<uint8_t> clipboardBytes(UINT format) {
  OpenClipboard(nullptr);
  const HANDLE memory = GetClipboardData(format);
  const auto *bytes = static_cast<const uint8_t *>(GlobalLock(memory));
  const std::vector<uint8_t> copy(bytes, bytes + GlobalSize(memory));
  GlobalUnlock(memory);
  CloseClipboard();
  return copy;
}

TEST(Desktop, TheClipboardTakesPictureAndText) {
  ShellWindow window("COAST.SC5");
  OpenedFile wanted;
  openInput(wanted, {.path = window.viewer.filePath});
  menuCopyClipboard_Click(wanted.viewer);
  window.choose("Copy to Clipboard");
  EXPECT_TRUE(clipboardBytes(CF_DIB) == wanted.platform.clipboard);
  EXPECT_TRUE(clipboardBytes(CF_DIBV5) == wanted.platform.clipboardV5);

  const HWND info = window.openDialog("Image Info", "Image Info");
  SendDlgItemMessageA(info, kCopyTextId, BM_CLICK, 0, 0);
  std::string text = reinterpret_cast<const char *>(clipboardBytes(CF_TEXT).data());
  EXPECT_EQ(textOf(GetDlgItem(info, kTextId)), text);
  std::erase(text, '\r');
  EXPECT_EQ(text + "\n", imageInfo(wanted.viewer));
  window.leaveDialog(info, IDCANCEL);

  const HWND count = window.openDialog("Count Colors", "Image Color Count");
  EXPECT_EQ(textOf(GetDlgItem(count, 0xFFFF)), "The amount of unique colors in this image is 16.");
  window.leaveDialog(count, IDOK);
}

TEST(Desktop, OpenDialogStartsInTheFolderInWhichKeysPage) {
  ShellWindow window("COAST.SC5");
  writeSample(window.folder, "COAST.SC8");
  const auto shows = [&](const char *name) { return window.viewer.window.caption == std::string("Korilan - ") + name; };
  PostMessageA(window.view, WM_KEYDOWN, VK_NEXT, 0);
  EXPECT_TRUE(window.settles([&] { return shows("COAST.SC8"); }));
  const HWND dialog = window.openDialog("Open", "Open A File");
  SendDlgItemMessageA(dialog, cmb13, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("COAST.SC5"));
  window.leaveDialog(dialog, IDOK);
  EXPECT_TRUE(shows("COAST.SC5"));
}

TEST(Desktop, AFileThatChangesIsShownAnew) {
  ShellWindow window("COAST.SC5");
  const std::string path = window.viewer.filePath;
  std::vector<uint8_t> bytes = window.folder.read(u8"COAST.SC5");
  OpenedFile wanted;
  for (const std::string way : {"written", "renamed over", "deleted and made anew"}) {
    std::ranges::reverse(bytes.begin() + 1000, bytes.begin() + 20000);
    if (way == "deleted and made anew") DeleteFileA(path.c_str());
    const uint32_t serial = window.viewer.window.pictureSerial;
    const std::string written = window.folder.write(way == "renamed over" ? u8"new" : u8"COAST.SC5", bytes);
    EXPECT_TRUE(written == path || MoveFileExA(written.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_TRUE(window.settles([&] { return window.viewer.window.pictureSerial != serial; })) << way;
    openInput(wanted, {.path = path});
    EXPECT_EQ(differences(window, wanted.viewer), "") << way;
  }
}

// The boxes of the dialog, "1" for one that is checked; six numbers between the two groups are unused.
std::string boxesOf(HWND dialog) {
  std::string boxes;
  for (int id = kGeneralPreferenceId; id < kAssociationId + 25; ++id)
    boxes += IsDlgButtonChecked(dialog, id) ? '1' : '0';
  return boxes;
}

TEST(Desktop, SavedPreferencesAreInTheRegistryAndActAtOnce) {
  RegSetKeyValueA(HKEY_CURRENT_USER, "Software\\Classes\\.DAT\\shell", nullptr, REG_SZ, "Other", sizeof "Other");
  deleteRegistrySetting("Korilan");
  ShellWindow window("");
  SetWindowPos(window.main.window, nullptr, 0, 0, 0, 0, SWP_NOSIZE);
  for (const WPARAM command : {IDCANCEL, kSavePreferencesId}) {
    const HWND dialog = window.openDialog("Preferences", "Preferences");
    EXPECT_EQ(boxesOf(dialog).substr(0, 4), "0000");
    for (const int box : {kCheckAllId, kUncheckAllId, kDefaultId, kGeneralPreferenceId, kGeneralPreferenceId + 1}) {
      SendDlgItemMessageA(dialog, box, BM_CLICK, 0, 0);
    }
    SendMessageA(dialog, WM_COMMAND, command, 0);
    window.leaveDialog(dialog, kClosePreferencesId);
  }
  const HWND dialog = window.openDialog("Preferences", "Preferences");
  EXPECT_EQ(boxesOf(dialog), "1100000000100" + std::string(19, '1') + "011"); // not .DAT, .CMP and .SRC
  window.leaveDialog(dialog, IDCANCEL);
  EXPECT_TRUE(readRegistrySetting("Korilan\\shell\\open\\command").ends_with("\\shell_test.exe %1"));
  EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Classes\\.SC5"), ERROR_SUCCESS);
  EXPECT_NE(RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Classes\\.DAT"), ERROR_SUCCESS); // is gone already
  for (int fitting = 0; fitting < 3; ++fitting) { // in the centre each time, also for a file of the same size
    RECT place{};
    GetWindowRect(window.main.window, &place);
    EXPECT_GT(place.left, 0);
    SetWindowPos(window.main.window, nullptr, 0, 0, 0, 0, SWP_NOSIZE);
    window.drop(writeSample(window.folder, "COAST.SC5"));
  }
  deleteRegistrySetting("Korilan");
  window.press(VK_ESCAPE);
  EXPECT_EQ(window.main.window, nullptr);
}

TEST(Desktop, RecentFilesAreInTheMenuOfTheNextWindow) {
  std::string first;
  {
    ShellWindow window("COAST.SC5");
    first = window.viewer.filePath;
    window.drop(writeSample(window.folder, "COAST.SC7"));
    window.drop(window.folder.write(u8"x.PL5", std::vector<uint8_t>(32, 1)));
    EXPECT_EQ(window.viewer.frameBits[0], 0x002424u); // red 0, blue 1, green 1
    EXPECT_EQ(differences(window), "");
  }
  ShellWindow window("", SW_SHOWNORMAL, true);
  const auto row = static_cast<UINT>(ShellWindow::menuCommand("Recent") - kFirstMenuCommand);
  const UINT item = kFirstChoiceCommand + row * kMaxChoices;
  std::array<char, 200> text{};
  GetMenuStringA(window.main.menuBar, item + 1, text.data(), text.size(), MF_BYCOMMAND);
  EXPECT_TRUE(std::string(text.data()).ends_with("COAST.SC5")) << text.data();
  EXPECT_EQ(window.viewer.recentFiles.at(1), first);
  SendMessageA(window.main.window, WM_COMMAND, item + 1, 0);
  EXPECT_EQ(window.viewer.filePath, first);
}

TEST(Desktop, PageDownScrollsTheHelp) {
  ShellWindow window("");
  const HWND dialog = window.openDialog("Help", "Korilan Help");
  const HWND text = GetDlgItem(dialog, kTextId);
  PostMessageA(text, WM_KEYDOWN, VK_NEXT, 0);
  EXPECT_TRUE(waitUntil([&] { return SendMessageA(text, EM_GETFIRSTVISIBLELINE, 0, 0) > 5; }));
  window.leaveDialog(dialog, IDCANCEL);
}

TEST(Desktop, TwentyFilesLeaveNothingBehind) {
  ShellWindow window("");
  DWORD handles = 0, handlesBefore = 0;
  PROCESS_MEMORY_COUNTERS memory{}, memoryBefore{};
  for (int i = 0; i < 20; ++i) {
    for (const char *name : {"COAST.SC5", "COAST.SC7", "SUNSET.EVA"}) window.drop(writeSample(window.folder, name));
    GetProcessHandleCount(GetCurrentProcess(), i == 0 ? &handlesBefore : &handles);
    GetProcessMemoryInfo(GetCurrentProcess(), i == 0 ? &memoryBefore : &memory, sizeof memory);
  }
  EXPECT_EQ(handles, handlesBefore);
  EXPECT_LT(memory.PagefileUsage, memoryBefore.PagefileUsage + 2'000'000); // ten bitmaps
}

TEST(Process, OpensTheFileOfTheCommandLine) {
  const TemporaryFolder folder("shell process");
  const std::string path = folder.write(u8"日本の城.SC5", std::vector<uint8_t>(30000, 0xFE));
  const intptr_t process = _spawnl(_P_NOWAIT, korilanPath.c_str(), "program", ("\"" + path + "\" ").c_str(), nullptr);
  const auto window = [] { return FindWindowA("KorilanMainWindow", "Korilan - 日本の城.SC5"); };
  EXPECT_TRUE(waitUntil([&] { return IsWindowVisible(window()); }));
  PostMessageA(window(), WM_SYSCOMMAND, SC_CLOSE, 0);
  int code = -1;
  _cwait(&code, process, 0);
  EXPECT_EQ(code, 0);
}

} // namespace

int main(int argumentCount, char **arguments) {
  ::testing::InitGoogleTest(&argumentCount, arguments);
  korilanPath = arguments[1];
  // Without a window manager Wine would wait for one whenever a window closes.
  constexpr char kDriver[] = "Software\\Wine\\AppDefaults\\shell_test.exe\\X11 Driver";
  RegSetKeyValueA(HKEY_CURRENT_USER, kDriver, "Managed", REG_SZ, "N", sizeof "N");
  RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Korilan"); // settings have their start values
  SetCursorPos(9999, 9999);                               // off the windows
  return RUN_ALL_TESTS();
}
