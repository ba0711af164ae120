#include "shell/main_view.h"

#include "core/bitmap_export.h"
#include "shell/control_ids.h"
#include "shell/scale_functions.h"
#include "shell/win32_helpers.h"

#include <algorithm>

namespace {

constexpr wchar_t kViewClass[] = L"KorilanMainView";

// Around a picture smaller than the area, and while no picture is shown.
constexpr int kBackgroundColour = COLOR_APPWORKSPACE;

// Draws straight from the frame: a bitmap of its own would double the memory of a huge picture. Returns false if the
// system has not enough memory.
bool drawPicture(HDC screen, const PixelView &picture, const Stretch &stretch) {
  const RECT target{0, 0, stretch.targetWidth, stretch.targetHeight};
  if (!RectVisible(screen, &target)) return true;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height; // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  SetStretchBltMode(screen, COLORONCOLOR);
  return StretchDIBits(screen, 0, 0, target.right, target.bottom, 0, 0, picture.width, picture.height,
                       picture.words.data(), &info, DIB_RGB_COLORS, SRCCOPY) != 0;
}

// Paints every pixel once: no flicker.
void paintView(const MainView &view, HDC screen) {
  const PixelView picture = shownPicture(*view.viewer);
  const Stretch &stretch = view.stretch;
  const bool clear = stretch.targetWidth <= 0 || stretch.targetHeight <= 0;
  // While the picture is being replaced, the one before stays on the screen. The new one requests a repaint.
  if (!clear && (stretch.sourceWidth != picture.width || stretch.sourceHeight != picture.height)) return;
  const SIZE client = clientSizeOf(view.window);
  const LONG right = view.corner.x + client.cx;
  const LONG bottom = view.corner.y + client.cy;
  const int before = SaveDC(screen);
  OffsetViewportOrgEx(screen, -view.corner.x, -view.corner.y, nullptr);
  if (!clear && !drawPicture(screen, picture, stretch)) SendMessageW(GetParent(view.window), kViewNotDrawn, 0, 0);
  const RECT beside{stretch.targetWidth, 0, right, stretch.targetHeight};
  const RECT below{0, stretch.targetHeight, right, bottom};
  for (const RECT &rest : {beside, below}) {
    if (rest.left < rest.right && rest.top < rest.bottom) FillRect(screen, &rest, GetSysColorBrush(kBackgroundColour));
  }
  RestoreDC(screen, before);
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
  SendMessageW(GetParent(view.window), kMouseLeftView, 0, 0); // another pixel is under the mouse
  InvalidateRect(view.window, nullptr, FALSE);
}

// Size inside the border, scroll bars included.
SIZE innerSizeOf(HWND window, UINT dotsPerInch) {
  const SIZE outer = windowSizeOf(window);
  return {outer.cx - 2 * scaleFunctions().systemMetric(SM_CXEDGE, dotsPerInch),
          outer.cy - 2 * scaleFunctions().systemMetric(SM_CYEDGE, dotsPerInch)};
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

void scrollByWheel(MainView &view, int turn) {
  constexpr int kNotchSteps = 3;
  scrollTo(view, {view.corner.x, view.corner.y - turn * kNotchSteps * kScrollStep / WHEEL_DELTA});
}

void mouseMoved(const MainView &view, LPARAM place) {
  requestMouseLeave(view.window);
  const LONG x = static_cast<short>(LOWORD(place)) + view.corner.x;
  const LONG y = static_cast<short>(HIWORD(place)) + view.corner.y;
  SendMessageW(GetParent(view.window), kMouseOverView, static_cast<WPARAM>(x), y);
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
  case WM_MOUSEWHEEL: scrollByWheel(*view, static_cast<short>(HIWORD(wParam))); return 0;
  case WM_GETDLGCODE: return DLGC_WANTARROWS;
  case WM_KEYDOWN: scrollByKey(*view, wParam); return 0;
  case WM_LBUTTONDOWN: SetFocus(window); return 0;
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
  viewClass.style = CS_DBLCLKS;
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

void redrawPicture(MainView &view, const Stretch &stretch, SIZE area) {
  view.stretch = stretch;
  if (area.cx != view.area.cx || area.cy != view.area.cy) {
    view.area = area;
    view.corner = {};
  }
  InvalidateRect(view.window, nullptr, FALSE);
}

void updateScrollBars(MainView &view) {
  const UINT dotsPerInch = scaleFunctions().dpiForWindow(view.window);
  SIZE room = innerSizeOf(view.window, dotsPerInch);
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
