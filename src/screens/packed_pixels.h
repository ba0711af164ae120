// Renderers of two and four pixels a byte: Screens 5 and 7 (nibbles) and Screen 6 (crumbs of two bits).
// All read `vram` and `palette`, and write imageWidth x imageHeight words of `frameBits`. The leftmost pixel of a byte
// lies in its highest bits. Where `vram` does not hold the whole picture nothing is drawn.
#pragma once

#include "state/viewer_state.h"

// Lines of whole bytes, one after another from `vramPos` on, which ends behind the picture. Pixels of a last, partial
// byte of a line are not stored and not drawn. A SymbOS graphic is drawn tile by tile, each line of a tile in whole
// bytes; pixels outside the frame are dropped.
void renderNibbleStream(ViewerState &viewer);
void renderCrumbStream(ViewerState &viewer);

// Rectangles cut out by COPY: pixels run on from line to line, so that a line may begin in the middle of a byte.
// `vramPos` is not used.
void renderNibbleLinear(ViewerState &viewer);
void renderCrumbLinear(ViewerState &viewer);

// Whether these write every pixel of the frame.
bool nibbleStreamFills(const ViewerState &viewer);
bool crumbStreamFills(const ViewerState &viewer);
bool nibbleLinearFills(const ViewerState &viewer);
bool crumbLinearFills(const ViewerState &viewer);
