// Graphics of the SymbOS desktop: tiles in rows.
#pragma once

#include "state/viewer_state.h"

// Answers as FileKind::load.
bool loadSymbosGraphic(ViewerState &viewer);

// Draws the tiles of the tile table through `palette`, 2 or 4 bits per pixel, lines of whole bytes, from `vramPos` on.
// A tile wider than the picture continues in the next line. Pixels outside the frame are dropped; pixels that no tile
// covers are black.
void renderSymbosTiles(ViewerState &viewer);
