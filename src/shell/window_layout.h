// Where the parts of the main window stand. Pure arithmetic, all in device pixels.
#pragma once

#include "state/window_model.h"

#include <windows.h>

#include <array>

// What the layout needs to know about the screen and the label font.
struct TextMetrics {
  int dotsPerInch = 96;
  int lineHeight = 0;
  int characterWidth = 0; // of an average character
  int scrollBarWidth = 0;
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

// What MainView shows in full: its size without the frame.
SIZE pictureAreaOf(const WindowModel &model);

// The client area that shows MainView and all labels in full. Where the screen has less height than that, there is room
// for a scroll bar beside the picture.
SIZE contentSize(const WindowModel &model, const TextMetrics &metrics, LONG mostHeight);

// MainView at the top, in the middle; below it the controls of a video; below those Label1 to Label3 with the swatches
// beside them; below those Label4 with the read-out at the right end. In a client area that is too small MainView is
// cut and the labels stay in sight.
WindowLayout layOutWindow(const WindowModel &model, const TextMetrics &metrics, SIZE client);

// `window` made no larger than the work area, then moved onto it by the shortest way.
RECT keptOnWorkArea(RECT window, const RECT &workArea);

// A rectangle of that size in the middle of the work area.
RECT centredOnWorkArea(SIZE window, const RECT &workArea);
