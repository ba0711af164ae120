// What a window shows, held against a viewer.
#pragma once

#include "base/colours.h"
#include "core/scaling.h"
#include "shell/shell_window.h"
#include "shell/win32_helpers.h"
#include "shell/window_controls.h"

// The client area, 0x00RRGGBB, top row first.
inline std::vector<uint32_t> pixelsOf(const ShellWindow &window, HWND control) {
  const SIZE size = clientSizeOf(control);
  std::vector<uint32_t> pixels(static_cast<size_t>(size.cx * size.cy));
  BITMAPINFO info{{sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
  window.run([&] {
    RedrawWindow(window.main.window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); // only what is marked for it
    const HDC screen = GetDC(control);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY);
    DeleteDC(memory);
    GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.cy), pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    ReleaseDC(control, screen);
  });
  for (uint32_t &pixel : pixels) pixel &= 0xFFFFFF;
  return pixels;
}

// Of a swatch inside its border; -1 if it is hidden.
inline int64_t fieldColour(const ShellWindow &window, int id) {
  const HWND swatch = window.control(id);
  if (!IsWindowVisible(swatch)) return -1;
  return pixelsOf(window, swatch).at(static_cast<size_t>(clientSizeOf(swatch).cx) + 1);
}

inline size_t wrongPixels(const ShellWindow &window, const ViewerState &wanted) {
  const auto &[sourceWidth, sourceHeight, width, height] = wanted.window.stretch;
  if (width < sourceWidth) return 0; // the window system chooses the pixels of a reduced page
  const std::vector<uint32_t> shown = pixelsOf(window, window.view);
  const SIZE client = clientSizeOf(window.view);
  const int scale = wanted.window.scale;
  const auto firstOf = [](LONG room, LONG length, LONG corner) { return room > length ? (length - room) / 2 : corner; };
  const int left = firstOf(client.cx, width * scale, window.main.mainView.corner.x);
  const int top = firstOf(client.cy, height * scale, window.main.mainView.corner.y);
  const uint32_t around = wanted.window.fullScreen ? 0 : swapRedBlue(GetSysColor(COLOR_BTNFACE));
  size_t wrong = 0;
  for (size_t i = 0; i < shown.size(); ++i) {
    const int x = left + static_cast<int>(i) % client.cx;
    const int y = top + static_cast<int>(i) / client.cx;
    const bool inside = x >= 0 && y >= 0 && x < width * scale && y < height * scale;
    const int pixel = inside ? y / scale * sourceHeight / height * sourceWidth + x / scale * sourceWidth / width : 0;
    wrong += shown[i] != (inside ? wanted.frameBits.at(static_cast<size_t>(pixel)) : around) ? 1 : 0;
  }
  return wrong;
}

// What the window shows otherwise than `wanted` has it, a line each.
inline std::string differences(const ShellWindow &window, ViewerState &wanted) {
  std::string text;
  wanted.display.startScale = window.viewer.display.startScale;
  const SIZE room = viewRoom(window.main.mainView);
  applyScale(wanted, room.cx, room.cy);
  const auto expect = [&](const std::string &what, const auto &shown, const auto &value) {
    if (shown == value) return;
    text += what + ": " + testing::PrintToString(shown) + " instead of " + testing::PrintToString(value) + "\n";
  };
  const WindowModel &model = wanted.window;
  expect("caption", textOf(window.main.window), model.caption);
  int id = kLabel1Id;
  for (const auto label : kLabelTexts) expect("label", textOf(window.control(id++)), model.*label);
  id = kLabel5Id;
  for (const Swatch &swatch : model.Label5) {
    expect("swatch", fieldColour(window, id++), swatch.visible ? int64_t{swatch.background} : -1);
  }
  const auto &[place, colour, ofCommand] = model.readout;
  expect("read-out", textOf(window.control(kReadoutId)), place);
  expect("read-out", fieldColour(window, kReadoutSwatchId), place.empty() || ofCommand ? -1 : int64_t{colour});
  const ScrollBar &bar = model.HScroll1;
  for (const int video : {kImage1Id, kImage1Id + 1, kHScroll1Id}) {
    expect("shown", IsWindowVisible(window.control(video)) != FALSE, bar.visible);
  }
  int least = 0, most = 0;
  GetScrollRange(window.control(kHScroll1Id), SB_CTL, &least, &most);
  const std::pair shown(GetScrollPos(window.control(kHScroll1Id), SB_CTL), most);
  if (bar.visible) expect("bar", shown, std::pair(bar.value, bar.maximum));
  for (UINT row = 0; row < kMenuRowCount; ++row) {
    if (kMenuRows[row].caption == nullptr) continue;
    const UINT state = GetMenuState(window.main.menuBar, kFirstMenuCommand + row, MF_BYCOMMAND);
    expect(kMenuRows[row].caption, (state & MF_GRAYED) == 0, menuRowEnabled(model, kMenuRows[row]));
    expect(kMenuRows[row].caption, (state & MF_CHECKED) != 0, (model.*kMenuRows[row].item).checked);
  }
  expect("View", (GetMenuState(window.main.menuBar, 1, MF_BYPOSITION) & MF_GRAYED) == 0, model.menuView.enabled);
  expect("wrong pixels", wrongPixels(window, wanted), size_t{0});
  return text;
}

inline std::string differences(ShellWindow &window) { return differences(window, window.viewer); }
