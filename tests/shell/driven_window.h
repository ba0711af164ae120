// Korilan.exe in a process of its own, watched and driven from outside.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <windows.h>

// Paths of the programs under test, set by main.
struct ShellPaths {
  std::string viewer;
  std::string probe;
};
extern ShellPaths shellPaths;

// While this lives, Wine shows the viewer without asking a window manager. Where there is none, as on a display for
// tests, it would wait two seconds for each window that closes. The keys are gone with the last program of Wine.
struct UnmanagedWindows {
  UnmanagedWindows();
  ~UnmanagedWindows();
  UnmanagedWindows(const UnmanagedWindows &) = delete;
  UnmanagedWindows &operator=(const UnmanagedWindows &) = delete;
};

struct ScreenPicture {
  int32_t width = 0;
  int32_t height = 0;
  std::vector<uint32_t> pixels; // 0x00RRGGBB, top row first
};

struct DrivenWindow {
  PROCESS_INFORMATION process{};
  HWND window = nullptr;
  HANDLE sharedText = nullptr;
  HMODULE probe = nullptr;
  HHOOK hook = nullptr;

  // Starts the viewer with `commandLine` behind its name and waits for its window.
  explicit DrivenWindow(const std::string &commandLine);
  ~DrivenWindow();
  DrivenWindow(const DrivenWindow &) = delete;
  DrivenWindow &operator=(const DrivenWindow &) = delete;
};

// Waits until `holds` is true; false when that takes longer than is bearable.
bool waitUntil(const std::function<bool()> &holds);

std::string textOf(HWND window);

// Text of the main window (0) or of one of its controls.
std::string textOf(const DrivenWindow &driven, int controlId);

// A line for each menu item, as shell_probe.h describes.
std::string menusOf(const DrivenWindow &driven);

// Whether a video runs: the menus of what must wait for its end are grey.
bool playing(const DrivenWindow &driven);

// Presses Play until a video runs: the window passes over it while it is busy, and in a run it does nothing.
bool startsRun(const DrivenWindow &driven);

// Chooses the menu item with that caption.
void choose(const DrivenWindow &driven, const char *caption);

// Presses and releases a key, given by its virtual-key code, while the main window has the keyboard.
void typeKey(const DrivenWindow &driven, int key, bool ctrl = false);

void dropFile(const DrivenWindow &driven, const std::string &path);

// Waits for the viewer's message box with that title, presses its button and returns its text.
std::string answerMessage(const DrivenWindow &driven, const char *title);

// Waits for the viewer's dialog with that title; nullptr when none comes.
HWND dialogNamed(const DrivenWindow &driven, const char *title);

// Presses a button of a dialog, or chooses the item of its menu with that number.
void press(HWND dialog, int id);

// Presses that button and waits until the dialog is gone. Returns false when there was none or it stays.
bool leaveDialog(HWND dialog, int id);

// The inside of a window as it stands on the screen.
ScreenPicture screenPicture(HWND window);

// The inside of the picture area as it stands on the screen.
ScreenPicture shownPicture(const DrivenWindow &driven);

// Outer size of the picture area.
SIZE mainViewSize(const DrivenWindow &driven);

// Waits for the end of the viewer; its exit code, or -1 when it goes on.
int exitCodeOf(const DrivenWindow &driven);

// What the clipboard holds in that format; empty when there is nothing.
std::vector<uint8_t> clipboardBytes(UINT format);

void emptyClipboard();
