#include "shell/window_placement.h"

#include "shell/scale_functions.h"
#include "shell/win32_helpers.h"

#include <algorithm>

namespace {

// The client area with frame, title bar and a menu bar of one row.
SIZE outerSize(const MainWindow &main, SIZE client) {
  RECT outer{0, 0, client.cx, client.cy};
  const auto style = static_cast<DWORD>(GetWindowLongW(main.window, GWL_STYLE));
  const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(main.window, GWL_EXSTYLE));
  scaleFunctions().adjustWindowRect(&outer, style, TRUE, extendedStyle, static_cast<UINT>(main.metrics.dotsPerInch));
  return sizeOf(outer);
}

SIZE contentToShow(const MainWindow &main) {
  const LONG frameHeight = outerSize(main, {}).cy;
  return contentSize(main.shown, main.metrics, sizeOf(workAreaOf(main.window)).cy - frameHeight);
}

constexpr UINT kMoveOnly = SWP_NOZORDER | SWP_NOACTIVATE;

void moveWindow(HWND window, const RECT &to, UINT how = kMoveOnly) {
  SetWindowPos(window, HWND_TOP, to.left, to.top, to.right - to.left, to.bottom - to.top, how);
}

// Skips SetWindowPos if nothing changes; it is slow even then.
void moveControl(HWND control, const RECT &to) {
  if (control == nullptr) return; // not created yet
  RECT now{};
  GetWindowRect(control, &now);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT *>(&now), 2);
  if (!EqualRect(&now, &to)) moveWindow(control, to);
}

RECT placeOnWorkArea(HWND window, SIZE size, bool centred) {
  const RECT workArea = workAreaOf(window);
  RECT place{};
  GetWindowRect(window, &place);
  place.right = place.left + size.cx;
  place.bottom = place.top + size.cy;
  place = keptOnWorkArea(place, workArea);
  return centred ? centredOnWorkArea(sizeOf(place), workArea) : place;
}

// One call sizes, moves and, with SWP_SHOWWINDOW in `how`, shows the window: each call is slow.
void fitToContent(const MainWindow &main, bool centred, UINT how = kMoveOnly) {
  const SIZE content = contentToShow(main);
  const SIZE outer = outerSize(main, content);
  const RECT place = placeOnWorkArea(main.window, outer, centred);
  moveWindow(main.window, place, how);
  // SWP_SHOWWINDOW may not have moved it; move it again if so.
  RECT now{};
  GetWindowRect(main.window, &now);
  if (!EqualRect(&now, &place)) moveWindow(main.window, place);
  // A menu bar of several rows makes the client area too low.
  const LONG missing = content.cy - clientSizeOf(main.window).cy;
  if (missing <= 0) return;
  moveWindow(main.window, placeOnWorkArea(main.window, {outer.cx, outer.cy + missing}, centred));
}

} // namespace

void releaseFont(MainWindow &main) {
  if (main.font == nullptr) return;
  DeleteObject(main.font);
  main.font = nullptr;
}

void updateFont(MainWindow &main, UINT dotsPerInch) {
  NONCLIENTMETRICSW system{}; // the call exists only for UTF-16
  system.cbSize = sizeof system;
  scaleFunctions().systemParameters(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0, dotsPerInch);
  const HFONT font = CreateFontIndirectW(&system.lfMessageFont);
  for (const HWND label : main.labels) SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  InvalidateRect(main.window, nullptr, TRUE); // owner-drawn controls
  releaseFont(main);
  main.font = font;

  TEXTMETRICW text{};
  const HDC screen = GetDC(main.window);
  const HGDIOBJ previous = SelectObject(screen, font);
  GetTextMetricsW(screen, &text);
  SelectObject(screen, previous);
  ReleaseDC(main.window, screen);
  main.metrics = {
      .dotsPerInch = static_cast<int>(dotsPerInch),
      .lineHeight = static_cast<int>(text.tmHeight),
      .characterWidth = static_cast<int>(text.tmAveCharWidth),
      .scrollBarWidth = scaleFunctions().systemMetric(SM_CXVSCROLL, dotsPerInch),
  };
}

void placeControls(MainWindow &main) {
  const WindowLayout layout = layOutWindow(main.shown, main.metrics, clientSizeOf(main.window));
  moveControl(main.mainView.window, layout.mainView);
  for (size_t i = 0; i < main.labels.size(); ++i) moveControl(main.labels[i], layout.labels[i]);
  for (size_t i = 0; i < main.swatches.size(); ++i) moveControl(main.swatches[i], layout.swatches[i]);
  for (size_t i = 0; i < main.videoButtons.size(); ++i) {
    moveControl(main.videoButtons[i].window, layout.videoButtons[i]);
  }
  moveControl(main.frameBar, layout.frameBar);
  moveControl(main.readout, layout.readout);
  moveControl(main.readoutSwatch, layout.readoutSwatch);
}

void fitWindow(MainWindow &main) {
  if (!IsWindowVisible(main.window)) return;
  main.fitWhenRestored = IsZoomed(main.window) || IsIconic(main.window);
  if (!main.fitWhenRestored) fitToContent(main, main.shown.alwaysCentred);
  placeControls(main);
}

void showFitted(MainWindow &main, int showCommand) {
  const bool plainly = showCommand == SW_SHOWNORMAL || showCommand == SW_SHOWDEFAULT;
  fitToContent(main, true, plainly ? SWP_SHOWWINDOW : kMoveOnly);
  placeControls(main);
  updateScrollBars(main.mainView);
  if (!plainly) ShowWindow(main.window, showCommand);
}

void keepWindowOnWorkArea(const MainWindow &main) {
  if (IsZoomed(main.window) || IsIconic(main.window)) return;
  moveWindow(main.window, placeOnWorkArea(main.window, windowSizeOf(main.window), false));
}

SIZE minWindowSize(const MainWindow &main) {
  const SIZE content = outerSize(main, contentToShow(main));
  const SIZE workArea = sizeOf(workAreaOf(main.window));
  return {std::min(content.cx, workArea.cx), std::min(content.cy, workArea.cy)};
}
