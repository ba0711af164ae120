// The colour under the mouse.
#pragma once

#include "state/viewer_state.h"

// The mouse is over the picture area at that pixel of it, counted from the top left corner of the picture as it is
// shown. Fills the read-out: place in the picture, palette entry where the pixel is one, colour as #RRGGBB.
void moveMouse(ViewerState &viewer, int32_t x, int32_t y);

// The mouse has left the picture area.
void leaveMouse(ViewerState &viewer);
