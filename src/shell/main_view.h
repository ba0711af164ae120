// MainView, the picture area of the main window. It paints from the frame of the viewer.
#pragma once

#include "state/viewer_state.h"

#include <windows.h>

struct MainView {
  const ViewerState *viewer = nullptr;
  HWND window = nullptr; // nullptr after its destruction
  Stretch stretch;       // of the picture; all zero while the area is clear

  SIZE area{};    // full size of the content in pixels; a smaller view scrolls
  POINT corner{}; // pixel of the area at the top left of the view
};

// Sent to the parent when the mouse moves over the view; wParam and lParam are x and y in the area.
inline constexpr UINT kMouseOverView = WM_APP;

// Sent to the parent when the mouse has left the view.
inline constexpr UINT kMouseLeftView = WM_APP + 1;

// Sent to the parent if the system has not enough memory to draw the picture.
inline constexpr UINT kViewNotDrawn = WM_APP + 2;

// Creates the control; both records must outlive it. Returns false if the system refuses.
bool createMainView(MainView &view, const ViewerState &viewer, HWND parent, HINSTANCE instance);

// Requests a repaint with that stretch and area size. A new size scrolls back to the top left corner.
// Call updateScrollBars() after resizing the view.
void redrawPicture(MainView &view, const Stretch &stretch, SIZE area);

// Shows a scroll bar in each direction in which the area does not fit; each bar takes room from the other direction.
void updateScrollBars(MainView &view);
