// Screens 2 and 4: 768 cells of 8 x 8 pixels, every pattern line with two colours.
#pragma once

#include "core/viewer_state.h"

// Loads a BLOAD file of Screen 2 (standard colours) or Screen 4 (own palette).
void loadPatternScreen(ViewerState &viewer);

// Draws the 32 x 24 cells of `vram` through `palette` into `frameBits`, 256 x 192 pixels. Colour 0 is a colour like
// any other. Does nothing where `frameBits` is not that wide and high.
void renderPatternScreen(ViewerState &viewer);
