// The colour under the mouse.
#pragma once

#include "state/viewer_state.h"

// The mouse is at that pixel of the scaled picture, counted from the top left corner. Fills the read-out: position in
// the picture, palette entry if the pixel has one, colour and levels.
void moveMouse(ViewerState &viewer, int32_t x, int32_t y);

// The mouse has left the picture area. The text of a command stays.
void leaveMouse(ViewerState &viewer);
