#include "shell/view_painting.h"

#include "core/bitmap_export.h"
#include "core/scaling.h"
#include "shell/empty_view.h"
#include "shell/win32_helpers.h"

#include <algorithm>

namespace {

constexpr COLORREF kPixelLine = RGB(0x70, 0x70, 0x70);
constexpr COLORREF kCellLine = RGB(0xFF, 0xFF, 0xFF);
constexpr int32_t kCellPixels = 8;

// Draws straight from the frame: a bitmap of its own would double the memory of a huge picture. Returns false if the
// system has not enough memory.
bool drawPicture(HDC screen, const PixelView &picture, const Stretch &stretch) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height; // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  SetStretchBltMode(screen, COLORONCOLOR);
  return StretchDIBits(screen, 0, 0, stretch.targetWidth, stretch.targetHeight, 0, 0, picture.width, picture.height,
                       picture.words.data(), &info, DIB_RGB_COLORS, SRCCOPY) != 0;
}

// As at scale 1, with the top left corner of the picture at `origin`.
bool drawUnscaled(HDC screen, POINT origin, const PixelView &picture, const Stretch &stretch) {
  const int before = SaveDC(screen);
  OffsetViewportOrgEx(screen, origin.x, origin.y, nullptr);
  const bool drawn = drawPicture(screen, picture, stretch);
  RestoreDC(screen, before);
  return drawn;
}

// Draws the pixels under `part` of the screen into a small bitmap, then enlarges that.
bool drawEnlarged(HDC screen, POINT origin, const RECT &part, const PixelView &picture, const MainView &view) {
  const LONG scale = view.scale;
  const POINT first{(part.left - origin.x) / scale, (part.top - origin.y) / scale};
  const SIZE pixels{(part.right - origin.x + scale - 1) / scale - first.x,
                    (part.bottom - origin.y + scale - 1) / scale - first.y};
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, pixels.cx, pixels.cy);
  const HGDIOBJ before = bitmap != nullptr ? SelectObject(memory, bitmap) : nullptr;
  bool drawn = before != nullptr && drawUnscaled(memory, {-first.x, -first.y}, picture, view.stretch);
  if (drawn) {
    SetStretchBltMode(screen, COLORONCOLOR);
    drawn = StretchBlt(screen, origin.x + first.x * scale, origin.y + first.y * scale, pixels.cx * scale,
                       pixels.cy * scale, memory, 0, 0, pixels.cx, pixels.cy, SRCCOPY) != FALSE;
  }
  if (before != nullptr) SelectObject(memory, before);
  if (bitmap != nullptr) DeleteObject(bitmap);
  DeleteDC(memory);
  return drawn;
}

// A line at the left edge of each pixel in `part` and one at its top; the cells' lines come last, over the others.
void drawGrid(HDC screen, POINT origin, const RECT &part, GridStep step) {
  const HGDIOBJ before = SelectObject(screen, GetStockObject(DC_BRUSH));
  for (const int32_t pixels : {1, kCellPixels}) {
    SetDCBrushColor(screen, pixels == 1 ? kPixelLine : kCellLine);
    const LONG width = step.width * pixels;
    const LONG height = step.height * pixels;
    for (LONG x = part.left - (part.left - origin.x) % width; x < part.right; x += width) {
      PatBlt(screen, x, part.top, 1, part.bottom - part.top, PATCOPY);
    }
    for (LONG y = part.top - (part.top - origin.y) % height; y < part.bottom; y += height) {
      PatBlt(screen, part.left, y, part.right - part.left, 1, PATCOPY);
    }
  }
  SelectObject(screen, before);
}

void fillAround(const MainView &view, HDC screen, POINT origin, SIZE client) {
  const bool black = view.viewer->window.fullScreen;
  const HBRUSH brush = black ? static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)) : GetSysColorBrush(COLOR_BTNFACE);
  const LONG top = std::max(LONG{0}, origin.y);
  const LONG bottom = std::min(client.cy, origin.y + view.area.cy);
  const RECT above{0, 0, client.cx, top};
  const RECT left{0, top, origin.x, bottom};
  const RECT right{origin.x + view.area.cx, top, client.cx, bottom};
  const RECT below{0, bottom, client.cx, client.cy};
  for (const RECT &field : {above, left, right, below}) {
    if (field.left < field.right && field.top < field.bottom) FillRect(screen, &field, brush);
  }
}

} // namespace

POINT pictureOrigin(const MainView &view) {
  const SIZE client = clientSizeOf(view.window);
  return {client.cx > view.area.cx ? (client.cx - view.area.cx) / 2 : -view.corner.x,
          client.cy > view.area.cy ? (client.cy - view.area.cy) / 2 : -view.corner.y};
}

void paintView(const MainView &view, HDC screen) {
  const PixelView picture = shownPicture(*view.viewer);
  const Stretch &stretch = view.stretch;
  const bool clear = view.area.cx <= 0 || view.area.cy <= 0;
  // While the picture is being replaced, the one before stays on the screen. The new one requests a repaint.
  if (!clear && (stretch.sourceWidth != picture.width || stretch.sourceHeight != picture.height)) return;
  const SIZE client = clientSizeOf(view.window);
  const POINT origin = pictureOrigin(view);
  fillAround(view, screen, origin, client);
  if (clear) drawEmptyText(view, screen, {0, 0, client.cx, client.cy});

  RECT update{};
  RECT part{};
  GetClipBox(screen, &update);
  const RECT whole{std::max(LONG{0}, origin.x), std::max(LONG{0}, origin.y),
                   std::min(client.cx, origin.x + view.area.cx), std::min(client.cy, origin.y + view.area.cy)};
  if (clear || !IntersectRect(&part, &update, &whole)) return;
  const bool drawn = view.scale == 1 ? drawUnscaled(screen, origin, picture, stretch)
                                     : drawEnlarged(screen, origin, part, picture, view);
  if (!drawn) SendMessageW(GetParent(view.window), kViewNotDrawn, 0, 0);
  const GridStep grid = gridStep(view.viewer->window);
  if (grid.width > 0) drawGrid(screen, origin, part, grid);
}
