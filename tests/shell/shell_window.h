// The window of the shell in this process, on a thread of its own.
#pragma once

#include "base/windows_text.h"
#include "samples/samples.h"
#include "shell/control_ids.h"
#include "shell/main_window.h"
#include "shell/platform_windows.h"

#include <array>
#include <functional>
#include <future>
#include <thread>

#include <shlobj.h>

// Asks until `holds`; false if that takes too long.
inline bool waitUntil(const std::function<bool()> &holds) {
  for (int poll = 0; poll < 3000; ++poll, Sleep(10)) {
    if (holds()) return true;
  }
  return false;
}

inline std::string textOf(HWND window) {
  std::array<wchar_t, 16384> text{};
  SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return toUtf8(text.data());
}

struct ShellWindow {
  TemporaryFolder folder{"shell window"};
  ViewerState viewer;
  MainWindow main;
  HWND view = nullptr;   // MainView
  HWND caller = nullptr; // runs procedures on the window's thread
  std::thread thread;

  // Shows the first sample whose name ends like that; an empty window for "". The user's settings are those of a first
  // start unless they are kept.
  explicit ShellWindow(const std::string &sample, int showCommand = SW_SHOWNORMAL, bool settingsKept = false) {
    if (!settingsKept) RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Korilan");
    const WNDPROC runProcedure = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
      if (message == WM_APP) (*reinterpret_cast<std::function<void()> *>(lParam))();
      return DefWindowProcA(window, message, wParam, lParam);
    };
    std::promise<void> shown;
    thread = std::thread([&, this] {
      viewer.platform = windowsPlatform(main);
      EXPECT_TRUE(createMainWindow(main, viewer, GetModuleHandleA(nullptr)));
      view = control(kMainViewId);
      startViewer(viewer, sample.empty() ? "" : writeSample(folder, sample));
      caller = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
      SetWindowLongPtrA(caller, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(runProcedure));
      showMainWindow(main, showCommand);
      shown.set_value();
      EXPECT_EQ(runMessageLoop(main), 0);
    });
    shown.get_future().wait();
    EXPECT_TRUE(settles([this] { return control(kLabel1Id) != nullptr; }));
  }

  ~ShellWindow() {
    SendMessageA(main.window, WM_CLOSE, 0, 0);
    thread.join();
    EXPECT_TRUE(main.window == nullptr && main.mainView.window == nullptr && main.font == nullptr);
  }

  HWND control(int id) const { return GetDlgItem(main.window, id); }

  // To its end, on the window's thread.
  void run(std::function<void()> procedure) const {
    SendMessageA(caller, WM_APP, 0, reinterpret_cast<LPARAM>(&procedure));
  }

  // Waits until the viewer is idle and `holds`.
  bool settles(const std::function<bool()> &holds = [] { return true; }) const {
    bool settled = false;
    const auto look = [&] { settled = viewer.activity == Activity::kIdle && holds(); };
    return waitUntil([&] { return run(look), settled; });
  }

  void drop(const std::string &path) const {
    const int units = static_cast<int>(path.size()) + 1;
    auto *files = static_cast<DROPFILES *>(GlobalAlloc(GPTR, sizeof(DROPFILES) + 2 * path.size() + 4));
    files->pFiles = sizeof(DROPFILES);
    files->fWide = TRUE;
    MultiByteToWideChar(CP_UTF8, 0, path.c_str(), -1, reinterpret_cast<wchar_t *>(files + 1), units);
    SendMessageA(view, WM_DROPFILES, reinterpret_cast<WPARAM>(files), 0);
  }

  void press(int key, bool ctrl = false, bool alt = false) {
    run([&] {
      std::array<BYTE, 256> keys{};
      keys[VK_CONTROL] = ctrl ? 0x80 : 0;
      keys[VK_MENU] = alt ? 0x80 : 0;
      SetKeyboardState(keys.data());
      const UINT pressed = alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
      const LPARAM state = alt ? KF_ALTDOWN << 16 : 0;
      MSG message{view, pressed, static_cast<WPARAM>(key), state, 0, {}};
      handleMessage(main, message);
    });
  }

  static WPARAM menuCommand(const std::string &caption) {
    const auto named = [&](const MenuRow &row) {
      return row.caption != nullptr && plainCaption(row.caption) == caption;
    };
    return static_cast<WPARAM>(kFirstMenuCommand + (std::ranges::find_if(kMenuRows, named) - kMenuRows.begin()));
  }

  void choose(const char *caption) const { SendMessageA(main.window, WM_COMMAND, menuCommand(caption), 0); }

  // An item of the submenu.
  void choose(const char *caption, size_t choice) const {
    const WPARAM row = menuCommand(caption) - kFirstMenuCommand;
    SendMessageA(main.window, WM_COMMAND, kFirstChoiceCommand + row * kMaxChoices + choice, 0);
  }

  HWND openDialog(const char *caption, const char *title) const {
    PostMessageA(main.window, WM_COMMAND, menuCommand(caption), 0);
    EXPECT_TRUE(waitUntil([&] { return IsWindowVisible(FindWindowA("#32770", title)); })) << title;
    return FindWindowA("#32770", title);
  }

  // Closes the dialog by a command and waits until its menu item's command has ended.
  void leaveDialog(HWND dialog, WPARAM command) const {
    PostMessageA(dialog, WM_COMMAND, command, 0);
    EXPECT_TRUE(waitUntil([&] { return !IsWindow(dialog); }) && settles());
  }
};
