#include "shell/driven_window.h"

#include "core/menus.h"
#include "shell/shell_probe.h"
#include "shell/control_ids.h"

#include <array>
#include <cstring>

ShellPaths shellPaths;

namespace {

constexpr DWORD kPatienceMilliseconds = 30000;
constexpr DWORD kPauseMilliseconds = 20;

HWND findWindowOf(DWORD processId) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, "KorilanMainWindow", nullptr)) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == processId && IsWindowVisible(window)) return window;
  }
  return nullptr;
}

// Runs `use` on the text that test and probe share.
void withSharedText(const DrivenWindow &driven, const std::function<void(char *)> &use) {
  auto *text = static_cast<char *>(MapViewOfFile(driven.sharedText, FILE_MAP_ALL_ACCESS, 0, 0, kSharedTextBytes));
  use(text);
  UnmapViewOfFile(text);
}

constexpr char kWine[] = "Software\\Wine";
constexpr char kViewerKey[] = "Software\\Wine\\AppDefaults\\Korilan.exe";

} // namespace

UnmanagedWindows::UnmanagedWindows() {
  HKEY wine = nullptr;
  if (RegOpenKeyExA(HKEY_CURRENT_USER, kWine, 0, KEY_READ, &wine) != ERROR_SUCCESS) return;
  RegCloseKey(wine);
  HKEY driver = nullptr;
  const std::string key = std::string(kViewerKey) + "\\X11 Driver";
  if (RegCreateKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr, &driver,
                      nullptr) != ERROR_SUCCESS) {
    return;
  }
  RegSetValueExA(driver, "Managed", 0, REG_SZ, reinterpret_cast<const BYTE *>("N"), 2);
  RegCloseKey(driver);
}

UnmanagedWindows::~UnmanagedWindows() { RegDeleteTreeA(HKEY_CURRENT_USER, kViewerKey); }

DrivenWindow::DrivenWindow(const std::string &commandLine) {
  std::string line = "\"" + shellPaths.viewer + "\" " + commandLine;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) return;
  waitUntil([this] { return (window = findWindowOf(process.dwProcessId)) != nullptr; });
  waitUntil([this] { return GetDlgItem(window, kReadoutSwatchId) != nullptr; }); // made after the first picture

  sharedText = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kSharedTextBytes, kSharedTextName);
  probe = LoadLibraryA(shellPaths.probe.c_str());
  const auto procedure =
      reinterpret_cast<HOOKPROC>(reinterpret_cast<void *>(GetProcAddress(probe, kProbeProcedureName)));
  hook = SetWindowsHookExA(WH_CALLWNDPROC, procedure, probe, GetWindowThreadProcessId(window, nullptr));
}

DrivenWindow::~DrivenWindow() {
  if (hook != nullptr) UnhookWindowsHookEx(hook);
  if (probe != nullptr) FreeLibrary(probe);
  if (sharedText != nullptr) CloseHandle(sharedText);
  TerminateProcess(process.hProcess, 99); // of no effect where it has ended, as it should
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
}

bool waitUntil(const std::function<bool()> &holds) {
  const DWORD start = GetTickCount();
  while (!holds()) {
    if (GetTickCount() - start > kPatienceMilliseconds) return false;
    Sleep(kPauseMilliseconds);
  }
  return true;
}

std::string textOf(HWND window) {
  std::array<char, 16384> text{};
  const LRESULT length = SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return std::string(text.data(), static_cast<size_t>(length));
}

std::string textOf(const DrivenWindow &driven, int controlId) {
  return textOf(controlId == 0 ? driven.window : GetDlgItem(driven.window, controlId));
}

std::string menusOf(const DrivenWindow &driven) {
  std::string states;
  SendMessageA(driven.window, RegisterWindowMessageA(kAskMenusMessage), 0, 0);
  withSharedText(driven, [&](const char *text) { states = text; });
  return states;
}

bool playing(const DrivenWindow &driven) {
  return menusOf(driven).find("File/Open Ctrl+O grey\n") != std::string::npos;
}

bool startsRun(const DrivenWindow &driven) {
  return waitUntil([&] {
    press(driven.window, kImage1Id);
    return playing(driven);
  });
}

void choose(const DrivenWindow &driven, const char *caption) {
  for (size_t row = 0; row < kMenuRows.size(); ++row) {
    if (kMenuRows[row].caption == nullptr || plainCaption(kMenuRows[row].caption) != caption) continue;
    PostMessageA(driven.window, WM_COMMAND, kFirstMenuCommand + row, 0);
  }
}

void dropFile(const DrivenWindow &driven, const std::string &path) {
  withSharedText(driven, [&](char *text) { std::strncpy(text, path.c_str(), kSharedTextBytes - 1); });
  SendMessageA(driven.window, RegisterWindowMessageA(kDropFileMessage), 0, 0);
}

void typeKey(const DrivenWindow &driven, int key, bool ctrl) {
  SetForegroundWindow(driven.window);
  waitUntil([&] { return GetForegroundWindow() == driven.window; });
  std::vector<INPUT> inputs;
  const auto add = [&](int code, bool released) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(code);
    input.ki.dwFlags = static_cast<DWORD>(released ? KEYEVENTF_KEYUP : 0);
    inputs.push_back(input);
  };
  if (ctrl) add(VK_CONTROL, false);
  add(key, false);
  add(key, true);
  if (ctrl) add(VK_CONTROL, true);
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

HWND dialogNamed(const DrivenWindow &driven, const char *title) {
  HWND dialog = nullptr;
  const auto stands = [&] {
    dialog = FindWindowA("#32770", title);
    return dialog != nullptr && GetWindow(dialog, GW_OWNER) == driven.window && IsWindowVisible(dialog);
  };
  return waitUntil(stands) ? dialog : nullptr;
}

void press(HWND dialog, int id) {
  const HWND button = GetDlgItem(dialog, id);
  if (button != nullptr) {
    PostMessageA(button, BM_CLICK, 0, 0);
  } else {
    PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
  }
}

bool leaveDialog(HWND dialog, int id) {
  if (dialog == nullptr) return false;
  press(dialog, id);
  return waitUntil([&] { return !IsWindow(dialog); });
}

std::string answerMessage(const DrivenWindow &driven, const char *title) {
  constexpr int kMessageTextId = 0xFFFF;
  const HWND box = dialogNamed(driven, title);
  const std::string text = textOf(GetDlgItem(box, kMessageTextId));
  return leaveDialog(box, IDOK) ? text : "";
}

ScreenPicture screenPicture(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  POINT corner{};
  ClientToScreen(window, &corner);

  ScreenPicture picture{.width = client.right, .height = client.bottom, .pixels = {}};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  void *pixels = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  const HGDIOBJ former = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, picture.width, picture.height, screen, corner.x, corner.y, SRCCOPY);
  GdiFlush();
  const auto *words = static_cast<const uint32_t *>(pixels);
  for (int64_t i = 0; i < int64_t{picture.width} * picture.height; ++i) picture.pixels.push_back(words[i] & 0xFFFFFF);
  SelectObject(memory, former);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return picture;
}

ScreenPicture shownPicture(const DrivenWindow &driven) { return screenPicture(GetDlgItem(driven.window, kMainViewId)); }

SIZE mainViewSize(const DrivenWindow &driven) {
  RECT outer{};
  GetWindowRect(GetDlgItem(driven.window, kMainViewId), &outer);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

int exitCodeOf(const DrivenWindow &driven) {
  DWORD code = 0;
  if (WaitForSingleObject(driven.process.hProcess, kPatienceMilliseconds) != WAIT_OBJECT_0) return -1;
  return GetExitCodeProcess(driven.process.hProcess, &code) ? static_cast<int>(code) : -1;
}

std::vector<uint8_t> clipboardBytes(UINT format) {
  std::vector<uint8_t> bytes;
  if (!OpenClipboard(nullptr)) return bytes;
  if (const HANDLE memory = GetClipboardData(format); memory != nullptr) {
    const auto *data = static_cast<const uint8_t *>(GlobalLock(memory));
    bytes.assign(data, data + GlobalSize(memory));
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return bytes;
}

void emptyClipboard() {
  waitUntil([] { return OpenClipboard(nullptr) != FALSE; });
  EmptyClipboard();
  CloseClipboard();
}
