#include "shell/main_view.h"

#include "shell/control_ids.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr char kViewClass[] = "KorilanMainView";

// Around a picture that is smaller than the area, and while there is none.
constexpr int kBackgroundColour = COLOR_APPWORKSPACE;

// While a picture is replaced, the stretch may for a moment be that of a larger one.
bool holdsSource(const MainView &view, const Stretch &stretch) {
  return view.bitmap != nullptr && stretch.sourceWidth <= view.width && stretch.sourceHeight <= view.height;
}

// Every pixel is painted once, so that nothing flickers.
void paintView(const MainView &view, HDC screen) {
  RECT client{};
  GetClientRect(view.window, &client);
  Stretch stretch = view.stretch;
  if (!holdsSource(view, stretch)) stretch = {};
  if (stretch.targetWidth > 0 && stretch.targetHeight > 0) {
    SetStretchBltMode(screen, COLORONCOLOR);
    StretchBlt(screen, 0, 0, stretch.targetWidth, stretch.targetHeight, view.picture1, 0, 0, stretch.sourceWidth,
               stretch.sourceHeight, SRCCOPY);
  }
  const RECT beside{stretch.targetWidth, 0, client.right, stretch.targetHeight};
  const RECT below{0, stretch.targetHeight, client.right, client.bottom};
  for (const RECT &rest : {beside, below}) {
    if (rest.left < rest.right && rest.top < rest.bottom) FillRect(screen, &rest, GetSysColorBrush(kBackgroundColour));
  }
}

void releasePicture(MainView &view) {
  if (view.bitmap != nullptr) {
    SelectObject(view.picture1, view.firstBitmap);
    DeleteObject(view.bitmap);
  }
  if (view.picture1 != nullptr) DeleteDC(view.picture1);
  view = {};
}

LRESULT CALLBACK mainViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto *creation = reinterpret_cast<const CREATESTRUCTA *>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto *view = reinterpret_cast<MainView *>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (view == nullptr || view->window != window) return DefWindowProcA(window, message, wParam, lParam);

  switch (message) {
  case WM_ERASEBKGND: return 1; // painting covers the whole area
  case WM_PAINT: {
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(window, &paint);
    if (screen != nullptr) paintView(*view, screen);
    EndPaint(window, &paint);
    return 0;
  }
  case WM_PRINTCLIENT: paintView(*view, reinterpret_cast<HDC>(wParam)); return 0;
  case WM_DROPFILES: return SendMessageA(GetParent(window), message, wParam, lParam);
  case WM_DESTROY: releasePicture(*view); return 0;
  default: return DefWindowProcA(window, message, wParam, lParam);
  }
}

} // namespace

bool createMainView(MainView &view, HWND parent, HINSTANCE instance) {
  WNDCLASSEXA viewClass{};
  viewClass.cbSize = sizeof viewClass;
  viewClass.lpfnWndProc = mainViewProcedure;
  viewClass.hInstance = instance;
  viewClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  viewClass.lpszClassName = kViewClass;
  RegisterClassExA(&viewClass);

  view.picture1 = CreateCompatibleDC(nullptr);
  view.window =
      CreateWindowExA(WS_EX_CLIENTEDGE | WS_EX_ACCEPTFILES, kViewClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0,
                      0, 0, 0, parent, reinterpret_cast<HMENU>(INT_PTR{kMainViewId}), instance, &view);
  return view.window != nullptr && view.picture1 != nullptr;
}

void setPicture(MainView &view, std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  if (width <= 0 || height <= 0) return;
  if (view.bitmap == nullptr || width != view.width || height != view.height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void *pixels = nullptr;
    const HBITMAP bitmap = CreateDIBSection(view.picture1, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap == nullptr) return;
    const HGDIOBJ former = SelectObject(view.picture1, bitmap);
    if (view.bitmap == nullptr) {
      view.firstBitmap = former;
    } else {
      DeleteObject(view.bitmap);
    }
    view.bitmap = bitmap;
    view.pixels = pixels;
    view.width = width;
    view.height = height;
  }
  GdiFlush(); // drawing from the former pixels has to be over
  const size_t words = static_cast<size_t>(width) * static_cast<size_t>(height);
  std::memcpy(view.pixels, frameBits.data(), std::min(words, frameBits.size()) * sizeof(uint32_t));
}

void redrawPicture(MainView &view, const Stretch &stretch) {
  view.stretch = stretch;
  InvalidateRect(view.window, nullptr, FALSE);
}
