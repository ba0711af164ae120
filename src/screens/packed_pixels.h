// Renderers of two and four pixels per byte: Screens 5 and 7 (nibbles) and Screen 6 (crumbs of two bits).
// All draw imageWidth x imageHeight pixels of `vram` through `palette`. The leftmost pixel of a byte is in its highest
// bits. The frame is black if `vram` does not hold the whole picture.
#pragma once

#include "state/viewer_state.h"

// Lines of whole bytes from `vramPos` on, which then is behind the picture. The pixels of a partial byte at the end of
// a line are not stored; they are black.
void renderNibbleStream(ViewerState &viewer);
void renderCrumbStream(ViewerState &viewer);

// Rectangles saved with COPY: lines have no padding and may begin inside a byte. `vramPos` is not used.
void renderNibbleLinear(ViewerState &viewer);
void renderCrumbLinear(ViewerState &viewer);
