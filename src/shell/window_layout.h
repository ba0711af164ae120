// Where the parts of the main window stand. Pure arithmetic, all in device pixels.
#pragma once

#include "core/window_model.h"

#include <windows.h>

#include <array>

// What the layout needs to know about the screen and the label font.
struct TextMetrics {
  int dotsPerInch = 96;
  int lineHeight = 0;
  int characterWidth = 0; // of an average character
};

struct WindowLayout {
  RECT mainView{};
  std::array<RECT, 4> labels{}; // Label1 to Label4
};

// The client area that shows MainView and all labels in full.
SIZE contentSize(const WindowModel &model, const TextMetrics &metrics);

// MainView at the top left, Label1 to Label3 in a row below it, Label4 in a row of its own. In a client area that is
// too low the labels move up over the picture, so that the status line can always be read.
WindowLayout layOutWindow(const WindowModel &model, const TextMetrics &metrics, SIZE client);

// `window` made no larger than the work area, then moved onto it by the shortest way.
RECT keptOnWorkArea(RECT window, const RECT &workArea);

// A rectangle of that size in the middle of the work area.
RECT centredOnWorkArea(SIZE window, const RECT &workArea);
