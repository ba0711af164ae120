#include "shell/window_placement.h"

#include "core/display_geometry.h"
#include "core/scaling.h"
#include "shell/scale_functions.h"
#include "shell/win32_helpers.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

// The client area with frame, title bar and a menu bar of one row.
SIZE outerSize(HWND window, SIZE client, const TextMetrics &metrics) {
  RECT outer{0, 0, client.cx, client.cy};
  const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
  const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
  scaleFunctions().adjustWindowRect(&outer, style, TRUE, extendedStyle, static_cast<UINT>(metrics.dotsPerInch));
  return sizeOf(outer);
}

SIZE contentAt(const MainWindow &main, SIZE area, const TextMetrics &metrics) {
  const SIZE frame = outerSize(main.window, {}, metrics);
  const SIZE workArea = sizeOf(workAreaOf(main.window));
  return contentSize(main.shown, area, metrics, {workArea.cx - frame.cx, workArea.cy - frame.cy});
}

// Outer size at which nothing scrolls.
SIZE fullSize(const MainWindow &main, const TextMetrics &metrics) {
  return outerSize(main.window, contentAt(main, pictureAreaOf(main.shown), metrics), metrics);
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
void fitToContent(MainWindow &main, UINT how = kMoveOnly) {
  const SIZE content = contentToShow(main);
  const SIZE outer = outerSize(main.window, content, main.metrics);
  const bool centred = main.shown.alwaysCentred;
  const RECT place = placeOnWorkArea(main.window, outer, centred);
  moveWindow(main.window, place, how);
  // SWP_SHOWWINDOW may not have moved it; move it again if so.
  RECT now{};
  GetWindowRect(main.window, &now);
  if (!EqualRect(&now, &place)) moveWindow(main.window, place);
  // A menu bar of several rows makes the client area too low.
  const LONG missing = content.cy - clientSizeOf(main.window).cy;
  if (missing > 0) moveWindow(main.window, placeOnWorkArea(main.window, {outer.cx, outer.cy + missing}, centred));
  main.fittedSize = windowSizeOf(main.window);
}

bool sizedByHand(const MainWindow &main) {
  const SIZE now = windowSizeOf(main.window);
  return now.cx != main.fittedSize.cx || now.cy != main.fittedSize.cy;
}

// Moves and sizes the window for another reason than its content.
void adjustWindow(MainWindow &main, const RECT &to, UINT how = kMoveOnly) {
  const bool byHand = sizedByHand(main);
  if (!byHand) main.fittedSize = sizeOf(to); // the move may have the window fitted again
  moveWindow(main.window, to, how);
  if (!byHand) main.fittedSize = windowSizeOf(main.window);
}

// Top left corners of the program's other windows.
std::vector<POINT> otherCorners(HWND window) {
  constexpr size_t kMaxWindows = 64;
  std::array<wchar_t, 64> className{};
  GetClassNameW(window, className.data(), static_cast<int>(className.size()));
  std::vector<POINT> corners;
  for (HWND other = nullptr; corners.size() < kMaxWindows;) {
    other = FindWindowExW(nullptr, other, className.data(), nullptr);
    if (other == nullptr) break;
    RECT place{};
    if (other != window && IsWindowVisible(other) && GetWindowRect(other, &place)) {
      corners.push_back({place.left, place.top});
    }
  }
  return corners;
}

// Moves a window that would open exactly over another one of the program.
void evadeOthers(MainWindow &main) {
  const SIZE size = sizedByHand(main) ? windowSizeOf(main.window) : fullSize(main, main.metrics);
  const RECT wanted = placeOnWorkArea(main.window, size, false);
  const int step = scaleFunctions().systemMetric(SM_CYCAPTION, static_cast<UINT>(main.metrics.dotsPerInch));
  const RECT place = freePlace(wanted, otherCorners(main.window), step, workAreaOf(main.window));
  if (EqualRect(&place, &wanted)) return;
  moveWindow(main.window, place);
  main.evadedTo = {place.left, place.top};
}

bool resizable(const MainWindow &main) {
  return !main.moving && !main.shown.fullScreen && !IsZoomed(main.window) && !IsIconic(main.window);
}

HFONT createMessageFont(UINT dotsPerInch) {
  NONCLIENTMETRICSW system{}; // the call exists only for UTF-16
  system.cbSize = sizeof system;
  scaleFunctions().systemParameters(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0, dotsPerInch);
  return CreateFontIndirectW(&system.lfMessageFont);
}

TextMetrics measureFont(HWND window, HFONT font, UINT dotsPerInch) {
  TEXTMETRICW text{};
  const HDC screen = GetDC(window);
  const HGDIOBJ previous = SelectObject(screen, font);
  GetTextMetricsW(screen, &text);
  SelectObject(screen, previous);
  ReleaseDC(window, screen);
  return {
      .dotsPerInch = static_cast<int>(dotsPerInch),
      .lineHeight = static_cast<int>(text.tmHeight),
      .characterWidth = static_cast<int>(text.tmAveCharWidth),
      .scrollBarWidth = scaleFunctions().systemMetric(SM_CXVSCROLL, dotsPerInch),
  };
}

} // namespace

void releaseFont(MainWindow &main) {
  if (main.font == nullptr) return;
  DeleteObject(main.font);
  main.font = nullptr;
}

void updateFont(MainWindow &main, UINT dotsPerInch) {
  const HFONT font = createMessageFont(dotsPerInch);
  for (const HWND label : main.labels) SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  InvalidateRect(main.window, nullptr, TRUE); // owner-drawn controls
  releaseFont(main);
  setDotsPerInch(*main.viewer, static_cast<int32_t>(dotsPerInch));
  main.font = font;
  main.metrics = measureFont(main.window, font, dotsPerInch);
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

SIZE contentToShow(const MainWindow &main) { return contentAt(main, pictureAreaOf(main.shown), main.metrics); }

void fitWindow(MainWindow &main) {
  if (!IsWindowVisible(main.window)) return;
  if (!main.shown.fullScreen) {
    main.fitLater = !resizable(main);
    const bool keepsSize = sizedByHand(main) || main.viewer->display.fit;
    if (!main.fitLater) keepsSize ? placeWindow(main) : fitToContent(main);
  }
  placeControls(main);
}

void fitWindowToPicture(MainWindow &main) {
  if (IsZoomed(main.window)) ShowWindow(main.window, SW_RESTORE);
  if (IsWindowVisible(main.window) && resizable(main)) fitToContent(main);
  placeControls(main);
}

void showFitted(MainWindow &main, int showCommand) {
  bool plainly = showCommand == SW_SHOWNORMAL || showCommand == SW_SHOWDEFAULT;
  if (plainly && main.opensMaximised) {
    showCommand = SW_SHOWMAXIMIZED;
    plainly = false;
  }
  if (!main.shown.alwaysCentred) evadeOthers(main);
  const UINT how = plainly ? SWP_SHOWWINDOW : kMoveOnly;
  sizedByHand(main) ? placeWindow(main, how) : fitToContent(main, how);
  placeControls(main);
  settleView(main.mainView);
  if (!plainly) ShowWindow(main.window, showCommand);
}

void placeWindow(MainWindow &main, UINT how) {
  if (!resizable(main)) {
    main.fitLater = main.fitLater || main.shown.alwaysCentred;
    return;
  }
  adjustWindow(main, placeOnWorkArea(main.window, windowSizeOf(main.window), main.shown.alwaysCentred), how);
}

void setMoving(MainWindow &main, bool moving) {
  main.moving = moving;
  if (main.fitLater) fitWindow(main);
}

// Only frame and labels scale; an enlarged window stays as much larger. A picture at the start value follows later.
SIZE sizeAtScale(const MainWindow &main, UINT dotsPerInch) {
  const HFONT font = createMessageFont(dotsPerInch);
  const SIZE full = fullSize(main, measureFont(main.window, font, dotsPerInch));
  DeleteObject(font);
  const SIZE fullNow = fullSize(main, main.metrics);
  const SIZE now = windowSizeOf(main.window);
  return {now.cx + full.cx - fullNow.cx, now.cy + full.cy - fullNow.cy};
}

void changeScale(MainWindow &main, UINT dotsPerInch, const RECT &place) {
  updateFont(main, dotsPerInch);
  if (main.shown.fullScreen) return coverMonitor(main);
  if (IsZoomed(main.window) || IsIconic(main.window)) main.fitLater = true;
  // Not even the minimum size changes the place: the window would jump under the mouse.
  adjustWindow(main, place, kMoveOnly | SWP_NOSENDCHANGING);
  placeControls(main);
}

void changeSettings(MainWindow &main, bool frameChanged) {
  const TextMetrics before = main.metrics;
  updateFont(main, static_cast<UINT>(before.dotsPerInch));
  if (frameChanged || main.metrics != before) fitWindow(main);
}

SIZE minWindowSize(const MainWindow &main) {
  constexpr SIZE kMinArea{kMinAreaWidth, kMinAreaHeight};
  const SIZE full = outerSize(main.window, contentAt(main, kMinArea, main.metrics), main.metrics);
  const SIZE workArea = sizeOf(workAreaOf(main.window));
  return {std::min(full.cx, workArea.cx), std::min(full.cy, workArea.cy)};
}
