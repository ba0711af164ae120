#include "shell/win32_helpers.h"

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

RECT workAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

void requestMouseLeave(HWND window) {
  TRACKMOUSEEVENT request{};
  request.cbSize = sizeof request;
  request.dwFlags = TME_LEAVE;
  request.hwndTrack = window;
  TrackMouseEvent(&request);
}

void setVisible(HWND control, bool visible) { ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE); }
