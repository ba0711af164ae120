#include "shell/video_buttons.h"

#include "shell/control_ids.h"
#include "shell/win32_helpers.h"

#include <algorithm>

namespace {

struct ButtonColours {
  COLORREF disc, sign;
};

constexpr COLORREF kDisc = RGB(0x44, 0x54, 0x6A);
constexpr COLORREF kHoveredDisc = RGB(0x1F, 0x6F, 0xD0);
constexpr COLORREF kPressedDisc = RGB(0x12, 0x3F, 0x78);
constexpr COLORREF kSign = RGB(0xFF, 0xFF, 0xFF);

bool highContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

ButtonColours coloursOf(bool hovered, bool pressed) {
  if (highContrast()) {
    return hovered ? ButtonColours{GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT)}
                   : ButtonColours{GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE)};
  }
  return {pressed ? kPressedDisc : hovered ? kHoveredDisc : kDisc, kSign};
}

COLORREF halfway(COLORREF left, COLORREF right) {
  const auto mean = [&](int shift) { return ((left >> shift & 255) + (right >> shift & 255)) / 2 << shift; };
  return mean(0) | mean(8) | mean(16);
}

// The outline has the mean of the colours on both sides, so the edge looks smooth.
void chooseColours(HDC screen, COLORREF shape, COLORREF around) {
  SetDCBrushColor(screen, shape);
  SetDCPenColor(screen, halfway(shape, around));
}

// A disc with a triangle (Play) or a square (Stop), centred in side x side pixels.
void drawShapes(HDC screen, int side, bool play, const ButtonColours &colours) {
  chooseColours(screen, colours.disc, GetSysColor(COLOR_BTNFACE));
  Ellipse(screen, 0, 0, side, side);
  chooseColours(screen, colours.sign, colours.disc);
  if (play) {
    const int left = side / 3, right = side * 4 / 5, top = side / 4;
    const std::array<POINT, 4> corners{
        {{left, top}, {right, (side - 1) / 2}, {right, side / 2}, {left, side - 1 - top}}};
    Polygon(screen, corners.data(), static_cast<int>(corners.size()));
  } else {
    const int corner = side * 31 / 100;
    const RECT square{corner, corner, side - corner, side - corner};
    FillRect(screen, &square, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  }
}

void setHovered(VideoButton &button, bool hovered) {
  if (button.hovered == hovered) return;
  button.hovered = hovered;
  InvalidateRect(button.window, nullptr, FALSE);
}

LRESULT CALLBACK buttonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto &button = *reinterpret_cast<VideoButton *>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_MOUSEMOVE) {
    setHovered(button, true);
    requestMouseLeave(window);
  } else if (message == WM_MOUSELEAVE) {
    setHovered(button, false);
  } else if (message == WM_ERASEBKGND) {
    return 1; // WM_DRAWITEM paints every pixel
  }
  return CallWindowProcW(button.firstProcedure, window, message, wParam, lParam);
}

} // namespace

void createVideoButtons(VideoButtons &buttons, HWND parent, HINSTANCE instance) {
  constexpr std::array<const wchar_t *, 2> kNames = {L"Play", L"Stop"};
  for (size_t i = 0; i < buttons.size(); ++i) {
    VideoButton &button = buttons[i];
    button.window = CreateWindowExW(0, L"BUTTON", kNames[i], WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW, 0,
                                    0, 0, 0, parent, reinterpret_cast<HMENU>(kImage1Id + i), instance, nullptr);
    if (button.window == nullptr) continue;
    SetWindowLongPtrW(button.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&button));
    button.firstProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(button.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(buttonProcedure)));
  }
}

void showVideoButtons(const VideoButtons &buttons, bool visible) {
  for (const VideoButton &button : buttons) setVisible(button.window, visible);
}

void drawVideoButton(const VideoButtons &buttons, const DRAWITEMSTRUCT &item) {
  const bool play = item.CtlID == kImage1Id;
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const int before = SaveDC(item.hDC);
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  SelectObject(item.hDC, GetStockObject(DC_BRUSH));
  SelectObject(item.hDC, GetStockObject(DC_PEN));
  const int side = std::min(item.rcItem.right, item.rcItem.bottom);
  drawShapes(item.hDC, side, play, coloursOf(buttons[play ? 0 : 1].hovered, pressed));
  RestoreDC(item.hDC, before);
  const bool focused = (item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0;
  if (focused) DrawFocusRect(item.hDC, &item.rcItem);
}
