// The picture area of the main window, and Picture1, the hidden picture that it is drawn from.
#pragma once

#include "state/window_model.h"

#include <windows.h>

#include <cstdint>
#include <span>

struct MainView {
  HWND window = nullptr; // nullptr once destroyed
  Stretch stretch;       // how Picture1 is drawn; all zero while the area is clear

  SIZE area{};    // what the view shows in full, in pixels; scrolled where the window has less room
  POINT corner{}; // of the area, at the top left of what is seen

  // Picture1: 32 bits per pixel, top row first, held in a device context of its own.
  HDC picture1 = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ firstBitmap = nullptr; // of the device context, put back before `bitmap` is deleted
  void *pixels = nullptr;
  int32_t width = 0;
  int32_t height = 0;
};

// Sent to the parent while the mouse is over the view; wParam and lParam hold x and y in the area.
inline constexpr UINT kMouseOverView = WM_APP;

// Sent to the parent when the mouse has left.
inline constexpr UINT kMouseLeftView = WM_APP + 1;

// Makes the control. `view` must outlive it. Returns false when the system refuses.
bool createMainView(MainView &view, HWND parent, HINSTANCE instance);

// Copies the words 0x00RRGGBB into Picture1. Where memory is lacking the former picture stays.
void setPicture(MainView &view, std::span<const uint32_t> frameBits, int32_t width, int32_t height);

// Has Picture1 drawn anew with that stretch, in an area of that size; another size is seen from its corner.
// updateScrollBars() is to follow, once the view itself has its new size.
void redrawPicture(MainView &view, const Stretch &stretch, SIZE area);

// Shows each scroll bar only where the area has no room, which it takes from the other.
void updateScrollBars(MainView &view);
