// From the picture's own size to the size in which it is shown: zoom, 1:2 aspect, the least area.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <vector>

// Size of MainView while no picture is shown, in pixels.
inline constexpr int32_t kEmptyViewWidth = 516;
inline constexpr int32_t kEmptyViewHeight = 428;

// What MainView is larger than the picture area inside of it: two pixels on either side.
inline constexpr int32_t kFrameAround = 4;

// Sizes MainView and the stretch of the picture onto it, has it drawn anew, and enables the palette commands that the
// picture allows. Does nothing while no picture is shown, or a video, which is
// always seen at twice its size.
void ApplyDisplayGeometry(ViewerState &viewer);

// The picture as MainView shows it: targetWidth x targetHeight words 0x00RRGGBB, each the source pixel that it
// stands on (nothing is smoothed). Empty while no picture is shown, and when memory is lacking.
std::vector<uint32_t> stretchedPicture(const ViewerState &viewer);
