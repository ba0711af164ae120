#include "shell/video_buttons.h"

#include "state/palette.h"
#include "shell/control_ids.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

struct ButtonColours {
  uint32_t background, disc, sign; // 0x00RRGGBB
};

constexpr uint32_t kDisc = 0x44546A;
constexpr uint32_t kHoveredDisc = 0x1F6FD0;
constexpr uint32_t kPressedDisc = 0x123F78;
constexpr uint32_t kSign = 0xFFFFFF;

uint32_t systemColour(int index) { return swapRedBlue(GetSysColor(index)); }

bool highContrast() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

ButtonColours coloursOf(bool hovered, bool pressed) {
  const uint32_t background = systemColour(COLOR_BTNFACE);
  if (highContrast()) {
    return hovered ? ButtonColours{background, systemColour(COLOR_HIGHLIGHT), systemColour(COLOR_HIGHLIGHTTEXT)}
                   : ButtonColours{background, systemColour(COLOR_BTNTEXT), background};
  }
  return {background, pressed ? kPressedDisc : hovered ? kHoveredDisc : kDisc, kSign};
}

// A place in the button, from -1 to 1 in both directions.
bool inDisc(double x, double y) { return x * x + y * y < 0.95 * 0.95; }
bool inTriangle(double x, double y) { return x > -0.32 && std::abs(y) < (0.55 - x) * 0.6; }
bool inSquare(double x, double y) { return std::max(std::abs(x), std::abs(y)) < 0.38; }

uint32_t mixed(uint32_t left, uint32_t right, int rightShare, int whole) {
  uint32_t colour = 0;
  for (const int shift : {0, 8, 16}) {
    const int from = static_cast<int>(left >> shift & 255);
    const int to = static_cast<int>(right >> shift & 255);
    colour |= static_cast<uint32_t>(from + (to - from) * rightShare / whole) << shift;
  }
  return colour;
}

// side x side words, each the mean of a grid of points, so that the edges are smooth.
std::vector<uint32_t> buttonImage(int side, bool (*inSign)(double, double), const ButtonColours &colours) {
  constexpr int kGrid = 4;
  std::vector<uint32_t> image;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      int discPoints = 0, signPoints = 0;
      for (int point = 0; point < kGrid * kGrid; ++point) {
        const int column = point % kGrid, row = point / kGrid;
        const double u = (x + (column + 0.5) / kGrid) * 2 / side - 1;
        const double v = (y + (row + 0.5) / kGrid) * 2 / side - 1;
        discPoints += inDisc(u, v) ? 1 : 0;
        signPoints += inSign(u, v) ? 1 : 0;
      }
      const uint32_t disc = mixed(colours.background, colours.disc, discPoints, kGrid * kGrid);
      image.push_back(mixed(disc, colours.sign, signPoints, kGrid * kGrid));
    }
  }
  return image;
}

void setHovered(VideoButton &button, bool hovered) {
  if (button.hovered == hovered) return;
  button.hovered = hovered;
  InvalidateRect(button.window, nullptr, FALSE);
}

LRESULT CALLBACK buttonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto &button = *reinterpret_cast<VideoButton *>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (message == WM_MOUSEMOVE) {
    setHovered(button, true);
    TRACKMOUSEEVENT leaving{};
    leaving.cbSize = sizeof leaving;
    leaving.dwFlags = TME_LEAVE;
    leaving.hwndTrack = window;
    TrackMouseEvent(&leaving);
  } else if (message == WM_MOUSELEAVE) {
    setHovered(button, false);
  } else if (message == WM_ERASEBKGND) {
    return 1; // drawing covers the whole button
  }
  return CallWindowProcA(button.firstProcedure, window, message, wParam, lParam);
}

} // namespace

void createVideoButtons(VideoButtons &buttons, HWND parent, HINSTANCE instance) {
  constexpr std::array<const char *, 2> kNames = {"Play", "Stop"};
  for (size_t i = 0; i < buttons.size(); ++i) {
    VideoButton &button = buttons[i];
    button.window = CreateWindowExA(0, "BUTTON", kNames[i], WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW, 0,
                                    0, 0, 0, parent, reinterpret_cast<HMENU>(kImage1Id + i), instance, nullptr);
    if (button.window == nullptr) continue;
    SetWindowLongPtrA(button.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&button));
    button.firstProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(button.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(buttonProcedure)));
  }
}

void showVideoButtons(const VideoButtons &buttons, bool visible) {
  for (const VideoButton &button : buttons) ShowWindow(button.window, visible ? SW_SHOWNA : SW_HIDE);
}

void drawVideoButton(const VideoButtons &buttons, const DRAWITEMSTRUCT &item) {
  const bool play = item.CtlID == kImage1Id;
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const int side = std::min(item.rcItem.right, item.rcItem.bottom);
  const auto image = buttonImage(side, play ? inTriangle : inSquare, coloursOf(buttons[play ? 0 : 1].hovered, pressed));
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = side;
  info.bmiHeader.biHeight = -side; // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const auto sideWords = static_cast<DWORD>(side);
  SetDIBitsToDevice(item.hDC, 0, 0, sideWords, sideWords, 0, 0, 0, sideWords, image.data(), &info, DIB_RGB_COLORS);
  if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}
