#include "shell/main_view.h"

#include "core/scaling.h"
#include "shell/control_ids.h"
#include "shell/scale_functions.h"
#include "shell/view_painting.h"
#include "shell/win32_helpers.h"

#include <algorithm>

namespace {

constexpr wchar_t kViewClass[] = L"KorilanMainView";

// Reports the pixel at that place of the client area.
void reportPixel(const MainView &view, POINT place) {
  const POINT origin = pictureOrigin(view);
  SendMessageW(GetParent(view.window), kMouseOverView, static_cast<WPARAM>(place.x - origin.x), place.y - origin.y);
}

// Another pixel may be under the mouse, which did not move.
void reportMouse(const MainView &view) {
  POINT mouse{};
  GetCursorPos(&mouse);
  const bool over = WindowFromPoint(mouse) == view.window;
  ScreenToClient(view.window, &mouse);
  RECT client{};
  GetClientRect(view.window, &client);
  if (over && PtInRect(&client, mouse)) {
    reportPixel(view, mouse);
  } else {
    SendMessageW(GetParent(view.window), kMouseLeftView, 0, 0);
  }
}

// Scrolls to `corner`, clamped to the area.
void scrollTo(MainView &view, POINT corner) {
  const SIZE client = clientSizeOf(view.window);
  corner.x = std::clamp(corner.x, LONG{0}, std::max(LONG{0}, view.area.cx - client.cx));
  corner.y = std::clamp(corner.y, LONG{0}, std::max(LONG{0}, view.area.cy - client.cy));
  if (corner.x == view.corner.x && corner.y == view.corner.y) return;
  view.corner = corner;
  SetScrollPos(view.window, SB_HORZ, view.corner.x, TRUE);
  SetScrollPos(view.window, SB_VERT, view.corner.y, TRUE);
  InvalidateRect(view.window, nullptr, FALSE);
  reportMouse(view);
}

void setScrollBar(const MainView &view, int bar, LONG length, LONG page, LONG position) {
  SCROLLINFO state{};
  state.cbSize = sizeof state;
  state.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  state.nMax = std::max(0, static_cast<int>(length) - 1);
  state.nPage = static_cast<UINT>(std::max(LONG{0}, page));
  state.nPos = position;
  SetScrollInfo(view.window, bar, &state, TRUE);
}

constexpr int kScrollStep = 32;

void scrollByBar(MainView &view, int bar, int request) {
  SCROLLINFO state{};
  state.cbSize = sizeof state;
  state.fMask = SIF_ALL;
  GetScrollInfo(view.window, bar, &state);
  const auto page = static_cast<int>(state.nPage);
  int position = state.nPos;
  switch (request) {
  case SB_LINEUP: position -= kScrollStep; break;
  case SB_LINEDOWN: position += kScrollStep; break;
  case SB_PAGEUP: position -= page; break;
  case SB_PAGEDOWN: position += page; break;
  case SB_THUMBTRACK:
  case SB_THUMBPOSITION: position = state.nTrackPos; break;
  case SB_TOP: position = state.nMin; break;
  case SB_BOTTOM: position = state.nMax; break;
  default: return;
  }
  scrollTo(view, bar == SB_HORZ ? POINT{position, view.corner.y} : POINT{view.corner.x, position});
}

void scrollByKey(MainView &view, WPARAM key) {
  switch (key) {
  case VK_LEFT: scrollByBar(view, SB_HORZ, SB_LINEUP); break;
  case VK_RIGHT: scrollByBar(view, SB_HORZ, SB_LINEDOWN); break;
  case VK_UP: scrollByBar(view, SB_VERT, SB_LINEUP); break;
  case VK_DOWN: scrollByBar(view, SB_VERT, SB_LINEDOWN); break;
  default: break;
  }
}

void scrollByWheel(MainView &view, int right, int down) {
  constexpr int kNotchSteps = 3;
  constexpr int kNotch = kNotchSteps * kScrollStep;
  scrollTo(view, {view.corner.x + right * kNotch / WHEEL_DELTA, view.corner.y + down * kNotch / WHEEL_DELTA});
}

// A step for each notch; finer wheels send parts of one.
void scaleByWheel(MainView &view, int turn, POINT mouse) {
  view.wheelRest += turn;
  const int steps = view.wheelRest / WHEEL_DELTA;
  view.wheelRest -= steps * WHEEL_DELTA;
  if (steps == 0) return;
  ScreenToClient(view.window, &mouse);
  view.wheel = mouse;
  SendMessageW(GetParent(view.window), kScaleTurned, static_cast<WPARAM>(steps), 0);
  view.wheel.reset();
}

void wheelTurned(MainView &view, WPARAM wheel, LPARAM place) {
  const int turn = static_cast<short>(HIWORD(wheel));
  const POINT mouse{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  if ((LOWORD(wheel) & MK_CONTROL) != 0) {
    scaleByWheel(view, turn, mouse);
  } else {
    const bool sideways = (LOWORD(wheel) & MK_SHIFT) != 0;
    scrollByWheel(view, sideways ? -turn : 0, sideways ? 0 : -turn);
  }
}

void mousePressed(MainView &view, LPARAM place) {
  SetFocus(view.window);
  SetCapture(view.window);
  const POINT mouse{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  view.drag = PictureDrag{.mouse = mouse, .corner = view.corner};
}

void mouseMoved(MainView &view, LPARAM place) {
  const POINT mouse{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  if (view.drag) {
    const auto &[start, corner] = *view.drag;
    scrollTo(view, {corner.x + start.x - mouse.x, corner.y + start.y - mouse.y});
  }
  requestMouseLeave(view.window);
  reportPixel(view, mouse);
}

// What is under that point, or in the centre. Turned on at the same point, nothing is lost by rounding or at an edge.
ScaleAnchor anchorAt(const MainView &view, std::optional<POINT> point) {
  const bool same = view.anchor && view.anchor->point.has_value() == point.has_value() &&
                    (!point || (view.anchor->point->x == point->x && view.anchor->point->y == point->y));
  const POINT origin = pictureOrigin(view);
  if (same && origin.x == view.anchoredOrigin.x && origin.y == view.anchoredOrigin.y) return *view.anchor;
  const SIZE client = clientSizeOf(view.window);
  const POINT place = point.value_or(POINT{client.cx / 2, client.cy / 2});
  return {.point = point, .x = anchorOf(place.x - origin.x, view.scale), .y = anchorOf(place.y - origin.y, view.scale)};
}

void scrollToAnchor(MainView &view) {
  const SIZE client = clientSizeOf(view.window);
  const POINT place = view.anchor->point.value_or(POINT{client.cx / 2, client.cy / 2});
  scrollTo(view, {placeOf(view.anchor->x, view.scale) - place.x, placeOf(view.anchor->y, view.scale) - place.y});
  view.anchoredOrigin = pictureOrigin(view);
  view.rescaled = false;
  reportMouse(view);
}

void updateScrollBars(MainView &view) {
  const UINT dotsPerInch = scaleFunctions().dpiForWindow(view.window);
  SIZE room = viewRoom(view);
  const LONG barWidth = scaleFunctions().systemMetric(SM_CXVSCROLL, dotsPerInch);
  const LONG barHeight = scaleFunctions().systemMetric(SM_CYHSCROLL, dotsPerInch);
  const bool vertical = view.area.cy > room.cy || (view.area.cx > room.cx && view.area.cy > room.cy - barHeight);
  const bool horizontal = view.area.cx > room.cx - (vertical ? barWidth : 0);
  if (vertical) room.cx -= barWidth;
  if (horizontal) room.cy -= barHeight;
  setScrollBar(view, SB_HORZ, view.area.cx, room.cx, view.corner.x);
  setScrollBar(view, SB_VERT, view.area.cy, room.cy, view.corner.y);
  scrollTo(view, view.corner);
}

// To the parent like an open menu: the system follows the mouse on a scroll bar until its button is up again.
LRESULT pressScrollBar(HWND view, WPARAM part, LPARAM place) {
  SendMessageW(GetParent(view), WM_ENTERMENULOOP, FALSE, 0);
  const LRESULT result = DefWindowProcW(view, WM_NCLBUTTONDOWN, part, place);
  SendMessageW(GetParent(view), WM_EXITMENULOOP, FALSE, 0);
  return result;
}

LRESULT CALLBACK mainViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto *creation = reinterpret_cast<const CREATESTRUCTW *>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto *view = reinterpret_cast<MainView *>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (view == nullptr || view->window != window) return DefWindowProcW(window, message, wParam, lParam);

  switch (message) {
  case WM_ERASEBKGND: return 1; // WM_PAINT paints every pixel
  case WM_PAINT: {
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(window, &paint);
    if (screen != nullptr) paintView(*view, screen);
    EndPaint(window, &paint);
    return 0;
  }
  case WM_PRINTCLIENT: paintView(*view, reinterpret_cast<HDC>(wParam)); return 0;
  case WM_SIZE: updateScrollBars(*view); return 0;
  case WM_HSCROLL: scrollByBar(*view, SB_HORZ, LOWORD(wParam)); return 0;
  case WM_VSCROLL: scrollByBar(*view, SB_VERT, LOWORD(wParam)); return 0;
  case WM_MOUSEHWHEEL: scrollByWheel(*view, static_cast<short>(HIWORD(wParam)), 0); return 0;
  case WM_MOUSEWHEEL: wheelTurned(*view, wParam, lParam); return 0;
  case WM_GETDLGCODE: return DLGC_WANTARROWS;
  case WM_KEYDOWN: scrollByKey(*view, wParam); return 0;
  case WM_LBUTTONDOWN: mousePressed(*view, lParam); return 0;
  case WM_LBUTTONUP: ReleaseCapture(); return 0;
  case WM_CAPTURECHANGED: view->drag.reset(); return 0;
  case WM_NCLBUTTONDOWN: return pressScrollBar(window, wParam, lParam);
  case WM_MOUSEMOVE: mouseMoved(*view, lParam); return 0;
  case WM_MOUSELEAVE: return SendMessageW(GetParent(window), kMouseLeftView, 0, 0);
  case WM_LBUTTONDBLCLK:
  case WM_DROPFILES: return SendMessageW(GetParent(window), message, wParam, lParam);
  case WM_DESTROY: *view = {}; return 0;
  default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

} // namespace

bool createMainView(MainView &view, const ViewerState &viewer, HWND parent, HINSTANCE instance) {
  view.viewer = &viewer;
  WNDCLASSEXW viewClass{};
  viewClass.cbSize = sizeof viewClass;
  viewClass.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS; // the picture is centred
  viewClass.lpfnWndProc = mainViewProcedure;
  viewClass.hInstance = instance;
  viewClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  viewClass.lpszClassName = kViewClass;
  RegisterClassExW(&viewClass);

  view.window = CreateWindowExW(WS_EX_CLIENTEDGE | WS_EX_ACCEPTFILES, kViewClass, L"Picture",
                                WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP, 0, 0, 0, 0, parent,
                                reinterpret_cast<HMENU>(INT_PTR{kMainViewId}), instance, &view);
  allowDrops(view.window);
  return view.window != nullptr;
}

SIZE viewRoom(const MainView &view) {
  const UINT dotsPerInch = scaleFunctions().dpiForWindow(view.window);
  const SIZE outer = windowSizeOf(view.window);
  return {outer.cx - 2 * scaleFunctions().systemMetric(SM_CXEDGE, dotsPerInch),
          outer.cy - 2 * scaleFunctions().systemMetric(SM_CYEDGE, dotsPerInch)};
}

void redrawPicture(MainView &view, const WindowModel &model) {
  const Stretch &stretch = model.stretch;
  if (stretch.targetWidth != view.stretch.targetWidth || stretch.targetHeight != view.stretch.targetHeight) {
    view.corner = {};
    view.anchor.reset();
    view.rescaled = false;
  } else if (model.scale != view.scale) {
    view.anchor = anchorAt(view, view.wheel);
    view.rescaled = true;
  }
  view.stretch = stretch;
  view.scale = model.scale;
  view.area = {stretch.targetWidth * model.scale, stretch.targetHeight * model.scale};
  InvalidateRect(view.window, nullptr, FALSE);
}

void settleView(MainView &view) {
  updateScrollBars(view);
  if (view.rescaled) scrollToAnchor(view);
}
