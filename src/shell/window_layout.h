// Positions of the controls of the main window: pure arithmetic in device pixels.
#pragma once

#include "state/window_model.h"

#include <windows.h>

#include <array>
#include <span>

// Metrics of the screen and of the label font.
struct TextMetrics {
  int dotsPerInch = 96;
  int lineHeight = 0;
  int characterWidth = 0; // average
  int scrollBarWidth = 0;

  bool operator==(const TextMetrics &) const = default;
};

struct WindowLayout {
  RECT mainView{};
  std::array<RECT, 4> labels{};    // Label1 to Label4
  std::array<RECT, 16> swatches{}; // Label5
  std::array<RECT, 2> videoButtons{};
  RECT frameBar{};
  RECT readout{};
  RECT readoutSwatch{};
};

// The size of MainView without its border that shows the whole scaled picture.
SIZE pictureAreaOf(const WindowModel &model);

// The client area that shows a picture area of that size and all labels in full. In a direction in which `room` is too
// small, the scroll bar widens it.
SIZE contentSize(const WindowModel &model, SIZE area, const TextMetrics &metrics, SIZE room);

// From top to bottom: MainView, which takes all the room that is left; at the lower edge the controls of a video;
// Label1 to Label3 and the swatches; Label4 and, at the right end, the read-out. If the client area is too small,
// MainView shrinks and the labels stay visible.
// In full screen MainView alone.
WindowLayout layOutWindow(const WindowModel &model, const TextMetrics &metrics, SIZE client);

// Clamps the size of `window` to the work area, then moves it inside by the shortest way.
RECT keptOnWorkArea(RECT window, const RECT &workArea);

// A rectangle of that size in the centre of the work area.
RECT centredOnWorkArea(SIZE window, const RECT &workArea);

// A place for a window whose corner is none of `taken`: `window`, moved to the right and down in steps; one that leaves
// the work area goes on from the top left of it. Gives up after a step for each of `taken`.
RECT freePlace(RECT window, std::span<const POINT> taken, int step, const RECT &workArea);
