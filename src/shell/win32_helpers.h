// Calls to the window system that several files share.
#pragma once

#include <windows.h>

#include <string_view>

SIZE sizeOf(const RECT &rectangle);

// Outer size.
SIZE windowSizeOf(HWND window);

SIZE clientSizeOf(HWND window);

MONITORINFO infoOf(HMONITOR monitor);

// The monitor that shows most of the window.
MONITORINFO monitorOf(HWND window);

// Its work area.
RECT workAreaOf(HWND window);

// Has WM_MOUSELEAVE sent once, when the mouse leaves the window.
void requestMouseLeave(HWND window);

// Lets a window that accepts files take them from the desktop even if the program runs as administrator.
void allowDrops(HWND window);

// Sets the caption or the text, given as UTF-8. Does nothing for nullptr.
void setText(HWND window, std::string_view text);

// Shows or hides a control without activating it. Does nothing for nullptr.
void setVisible(HWND control, bool visible);
