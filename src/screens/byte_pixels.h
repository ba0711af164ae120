// Renderer of one byte per pixel: Screens 8 and 10 to 12, and the V9990's byte modes.
#pragma once

#include "state/viewer_state.h"

// Draws imageWidth x imageHeight pixels from `vramPos` on, which then is behind the last byte used; lines have no
// padding. In the group modes the last (imageWidth mod 4) pixels of a line have no bytes and are black. The frame is
// black if the colour mode is unknown or `vram` does not hold the picture.
void RenderBytePixels(ViewerState &viewer);
