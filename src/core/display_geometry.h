// The size at which the picture is shown: zoom, 1:2 aspect, minimum area.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

// Size of MainView while no picture is shown, in pixels.
inline constexpr int32_t kEmptyViewWidth = 516;
inline constexpr int32_t kEmptyViewHeight = 428;

// Minimum size of the picture area in MainView.
inline constexpr int32_t kMinAreaWidth = 256;
inline constexpr int32_t kMinAreaHeight = 192;

// Sizes MainView and the stretch of the picture, requests a repaint, and enables the palette commands that the picture
// allows. Does nothing if no picture is shown, or if a video is open, which is always shown at twice its size.
void ApplyDisplayGeometry(ViewerState &viewer);
