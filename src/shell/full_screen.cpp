#include "shell/full_screen.h"

#include "shell/main_window.h"
#include "shell/win32_helpers.h"
#include "shell/window_placement.h"

namespace {

constexpr UINT kPointerRestMilliseconds = 2000;

bool samePoint(POINT a, POINT b) { return a.x == b.x && a.y == b.y; }

POINT pointerPlace() {
  POINT place{};
  GetCursorPos(&place);
  return place;
}

void setPlace(HWND window, const RECT &to, UINT how) {
  const SIZE size = sizeOf(to);
  SetWindowPos(window, HWND_TOP, to.left, to.top, size.cx, size.cy, how | SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
}

void enterFullScreen(MainWindow &main) {
  const DWORD style = (main.fullScreen.style & ~DWORD{WS_OVERLAPPEDWINDOW}) | WS_POPUP;
  SetWindowLongW(main.window, GWL_STYLE, static_cast<LONG>(style));
  SetMenu(main.window, nullptr);
  setPlace(main.window, monitorOf(main.window).rcMonitor, 0);
  SetFocus(main.mainView.window); // the other controls have no size
  main.fullScreen.pointer = pointerPlace();
  SetTimer(main.window, kPointerTimer, kPointerRestMilliseconds, nullptr);
}

void leaveFullScreen(MainWindow &main) {
  FullScreen &before = main.fullScreen;
  const bool fitting = main.fitLater;
  KillTimer(main.window, kPointerTimer);
  if (before.pointerHidden) SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  before.pointerHidden = false;
  SetWindowLongW(main.window, GWL_STYLE, static_cast<LONG>(before.style));
  SetMenu(main.window, main.menuBar);
  if (before.displayChanged) ShowWindow(main.window, SW_RESTORE); // has a maximised window measured anew
  SetWindowPlacement(main.window, &before.placement);
  // The placement of a window that the system has put beside another has its place before that.
  setPlace(main.window, before.place, before.displayChanged ? SWP_NOMOVE | SWP_NOSIZE : 0);
  if (before.displayChanged) placeWindow(main);
  const SIZE content = contentToShow(main);
  if (fitting || content.cx != before.content.cx || content.cy != before.content.cy) fitWindow(main);
}

} // namespace

void storeWindow(MainWindow &main) {
  if (IsIconic(main.window)) ShowWindow(main.window, SW_RESTORE);
  FullScreen &before = main.fullScreen;
  before.displayChanged = false;
  before.placement.length = sizeof before.placement;
  GetWindowPlacement(main.window, &before.placement);
  GetWindowRect(main.window, &before.place);
  before.style = static_cast<DWORD>(GetWindowLongW(main.window, GWL_STYLE));
  before.content = contentToShow(main);
}

void turnFullScreen(MainWindow &main) {
  if (IsIconic(main.window)) ShowWindow(main.window, SW_RESTORE);
  main.shown.fullScreen ? enterFullScreen(main) : leaveFullScreen(main);
  placeControls(main);
}

void coverMonitor(const MainWindow &main) {
  const RECT monitor = monitorOf(main.window).rcMonitor;
  RECT now{};
  GetWindowRect(main.window, &now);
  if (!EqualRect(&now, &monitor)) setPlace(main.window, monitor, SWP_NOACTIVATE | SWP_NOZORDER);
}

bool trackPointer(MainWindow &main) {
  FullScreen &full = main.fullScreen;
  const POINT now = pointerPlace();
  if (!samePoint(now, full.pointer)) {
    full.pointer = now;
    full.pointerHidden = false;
    SetTimer(main.window, kPointerTimer, kPointerRestMilliseconds, nullptr); // starts it anew
  }
  if (full.pointerHidden) SetCursor(nullptr);
  return full.pointerHidden;
}

void hideRestingPointer(MainWindow &main) {
  FullScreen &full = main.fullScreen;
  const POINT now = pointerPlace();
  const bool rests = samePoint(now, full.pointer);
  full.pointer = now;
  if (!rests) return; // moved without a message: a button is held down
  KillTimer(main.window, kPointerTimer);
  if (WindowFromPoint(now) != main.mainView.window) return; // a dialog
  full.pointerHidden = true;
  SetCursor(nullptr);
}
