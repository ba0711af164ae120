// MainView, the picture area of the main window, and Picture1, the bitmap it is painted from.
#pragma once

#include "state/window_model.h"

#include <windows.h>

#include <cstdint>
#include <span>

struct MainView {
  HWND window = nullptr; // nullptr after its destruction
  Stretch stretch;       // of Picture1; all zero while the area is clear

  SIZE area{};    // full size of the content in pixels; a smaller view scrolls
  POINT corner{}; // pixel of the area at the top left of the view

  // Picture1: 32 bits per pixel, top row first, selected into its own device context.
  HDC picture1 = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ firstBitmap = nullptr; // original bitmap of the device context, selected again before `bitmap` is deleted
  void *pixels = nullptr;
  int32_t width = 0;
  int32_t height = 0;
};

// Sent to the parent when the mouse moves over the view; wParam and lParam are x and y in the area.
inline constexpr UINT kMouseOverView = WM_APP;

// Sent to the parent when the mouse has left the view.
inline constexpr UINT kMouseLeftView = WM_APP + 1;

// Creates the control; `view` must outlive it. Returns false if the system refuses.
bool createMainView(MainView &view, HWND parent, HINSTANCE instance);

// Copies the words 0x00RRGGBB into Picture1. Keeps the old picture if memory runs out.
void setPicture(MainView &view, std::span<const uint32_t> frameBits, int32_t width, int32_t height);

// Requests a repaint with that stretch and area size. A new size scrolls back to the top left corner.
// Call updateScrollBars() after resizing the view.
void redrawPicture(MainView &view, const Stretch &stretch, SIZE area);

// Shows a scroll bar in each direction in which the area does not fit; each bar takes room from the other direction.
void updateScrollBars(MainView &view);
