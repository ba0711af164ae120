// MainView, the picture area of the main window. It paints from the frame of the viewer.
#pragma once

#include "state/viewer_state.h"

#include <windows.h>

#include <cstdint>
#include <optional>

// The part of the picture that stays at `point` of the view when the scale changes; without a point, in the centre.
struct ScaleAnchor {
  std::optional<POINT> point;
  int64_t x = 0; // of anchorOf()
  int64_t y = 0;
};

// The mouse drags the picture.
struct PictureDrag {
  POINT mouse{};  // where the button was pressed
  POINT corner{}; // the view's corner then
};

struct MainView {
  const ViewerState *viewer = nullptr;
  HWND window = nullptr; // nullptr after its destruction
  Stretch stretch;       // of the picture; all zero while the area is clear
  int32_t scale = 1;     // of the stretched picture

  SIZE area{};    // size of the scaled picture in pixels; a smaller view scrolls
  POINT corner{}; // pixel of the area at the top left of the view

  std::optional<POINT> wheel;        // while the wheel turns the scale: the place of the mouse
  std::optional<ScaleAnchor> anchor; // of the last change of the scale
  POINT anchoredOrigin{};            // place of the picture after it
  bool rescaled = false;             // the view must scroll to `anchor`
  std::optional<PictureDrag> drag;
  int wheelRest = 0; // of a turn of less than a notch
};

// Sent to the parent when the mouse moves over the view; wParam and lParam are x and y in the area.
inline constexpr UINT kMouseOverView = WM_APP;

// Sent to the parent when the mouse has left the view.
inline constexpr UINT kMouseLeftView = WM_APP + 1;

// Sent to the parent if the system has not enough memory to draw the picture.
inline constexpr UINT kViewNotDrawn = WM_APP + 2;

// Sent to the parent when the wheel turns with Ctrl; wParam is the number of steps, negative for smaller.
inline constexpr UINT kScaleTurned = WM_APP + 3;

// Creates the control; both records must outlive it. Returns false if the system refuses.
bool createMainView(MainView &view, const ViewerState &viewer, HWND parent, HINSTANCE instance);

// Size inside the border, scroll bars included.
SIZE viewRoom(const MainView &view);

// Requests a repaint of the picture that the model shows. A picture of another size scrolls back to the top left
// corner; another scale keeps the pixel under a turning wheel, else the one in the centre.
// Call settleView() after resizing the view.
void redrawPicture(MainView &view, const WindowModel &model);

// Shows a scroll bar in each direction in which the area does not fit, each takes room from the other direction, and
// scrolls to the pixel that redrawPicture() keeps.
void settleView(MainView &view);
