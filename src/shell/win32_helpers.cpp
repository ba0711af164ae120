#include "shell/win32_helpers.h"

#include "base/windows_text.h"

SIZE sizeOf(const RECT &rectangle) { return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top}; }

SIZE windowSizeOf(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  return sizeOf(outer);
}

SIZE clientSizeOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return sizeOf(client);
}

MONITORINFO infoOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitor, &info);
  return info;
}

MONITORINFO monitorOf(HWND window) { return infoOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)); }

RECT workAreaOf(HWND window) { return monitorOf(window).rcWork; }

void requestMouseLeave(HWND window) {
  TRACKMOUSEEVENT request{};
  request.cbSize = sizeof request;
  request.dwFlags = TME_LEAVE;
  request.hwndTrack = window;
  TrackMouseEvent(&request);
}

void allowDrops(HWND window) {
  constexpr UINT kCopyGlobalData = 0x0049; // carries the paths; not in the headers
  for (const UINT message : {UINT{WM_DROPFILES}, UINT{WM_COPYDATA}, kCopyGlobalData}) {
    ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
  }
}

void setText(HWND window, std::string_view text) { SetWindowTextW(window, toUtf16(text).c_str()); }

void setVisible(HWND control, bool visible) { ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE); }
