// What the window does on the desktop, and Korilan.exe as a process.
#include "cli/opened_file.h"
#include "core/bitmap_export.h"
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
  const FileWatch &watch = window.main.fileWatch;
  for (const std::string way : {"written", "renamed over", "deleted and made anew", "with its folder"}) {
    std::ranges::reverse(bytes.begin() + 1000, bytes.begin() + 20000);
    if (way == "deleted and made anew") DeleteFileA(path.c_str());
    if (way == "with its folder") {
      std::filesystem::remove_all(window.folder.path);
      EXPECT_TRUE(window.settles([&] { return !watch.missing.empty() && !window.viewer.following.waits; }));
      std::filesystem::create_directories(window.folder.path);
    }
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
