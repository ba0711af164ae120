// From the loaded picture to the shown one.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <vector>

// The last step of a load: draws `vram` into `frameBits` by the picture's description, shows it, and enables the
// commands that need a picture. The old picture stays, with the error shown, if there is not enough memory.
void renderAndShow(ViewerState &viewer);

// Redraws the shown picture through the current palette.
void redrawPicture(ViewerState &viewer);

// Marks a palette entry.
inline constexpr uint32_t kEntryMark = 0x01000000;

// Draws kEntryMark + entry into the frame for each pixel drawn through `palette`; the caller restores the frame.
void drawEntries(ViewerState &viewer);

// The shown picture with kEntryMark + entry for each pixel drawn through `palette`; there are none if the palette
// changes from line to line. Empty if there is not enough memory.
std::vector<uint32_t> renderEntries(ViewerState &viewer);
