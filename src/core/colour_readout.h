// The colour under the mouse.
#pragma once

#include "state/viewer_state.h"

// The mouse is at that pixel of the scaled picture, counted from the top left corner. Fills the read-out: position in
// the picture, palette entry if the pixel has one, colour and levels.
void moveMouse(ViewerState &viewer, int32_t x, int32_t y);

// The same by the pixel of the picture, where it is not shown stretched.
void moveMouseToPixel(ViewerState &viewer, int32_t column, int32_t line);

// The mouse has left the picture area. The text of a command stays.
void leaveMouse(ViewerState &viewer);
