// Chooses the renderers of the current picture and hands the result to the window.
#pragma once

#include "core/viewer_state.h"

// Draws `vram` into `frameBits` by the picture's description, sets the state of View Palette, lets pending events run
// once, and presents the picture. A depth that no renderer serves gives a black picture.
void renderPicture(ViewerState &viewer);
