// The scale of the view: whole screen pixels for each pixel of the stretched picture, the same in both directions.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstddef>
#include <cstdint>

inline constexpr std::array<int32_t, 11> kScaleSteps{1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 16};

// Reads the chosen scale from the user's settings; a missing or wrong value means the start value.
void loadScale(ViewerState &viewer);

// The start value is the whole part of dots per inch / 96.
void setDotsPerInch(ViewerState &viewer, int32_t dotsPerInch);

// Sets `window.scale` for a view with that room, and what the Display menu shows of it. Fit, and full screen, take the
// largest whole factor at which the picture fits; 1 if none does. No room means that it is not known yet: the start
// value, which an empty view has, too.
void applyScale(ViewerState &viewer, int32_t roomWidth, int32_t roomHeight);

// Chooses the step that many steps above the present scale, or below it; ends Fit. Does nothing without a picture, in
// full screen and during a load.
void stepScale(ViewerState &viewer, int32_t steps);

void menuLarger_Click(ViewerState &viewer);
void menuSmaller_Click(ViewerState &viewer);
void menuNormalScale_Click(ViewerState &viewer);

// Runs an item of Display > Scale: the steps, a separator, Fit.
void chooseScale(ViewerState &viewer, size_t choice);

// Requests that the window takes the size of the picture.
void menuFitWindow_Click(ViewerState &viewer);

// A place in the scaled picture, in parts of a pixel that are the same at every scale, and back.
int64_t anchorOf(int32_t place, int32_t scale);
int32_t placeOf(int64_t anchor, int32_t scale);

// Screen pixels of a picture pixel of the grid; 0: no grid is drawn.
struct GridStep {
  int32_t width = 0;
  int32_t height = 0;
};

// A pixel of the picture must be at least 4 screen pixels wide and high, and every one of them must be shown.
GridStep gridStep(const WindowModel &window);
