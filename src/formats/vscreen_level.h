// Graphics of VSCREEN game levels: borders, tile sets, sprite sets. The loaders answer as FileKind::load.
#pragma once

#include "state/viewer_state.h"

// Whether the open file is a tile set, which has no header: by its length, and a first byte that is not a BLOAD file's.
bool holdsTileSet(const ViewerState &viewer);

bool loadTileSet(ViewerState &viewer);
bool loadBorder(ViewerState &viewer);    // .SCR
bool loadSpriteSet(ViewerState &viewer); // .TGS, with its colours in a .TCS file beside it

// Draws 8 rows of 32 tiles of 8 x 8 pixels from `vram`. The frame is black unless it has 256 x 64 pixels.
void renderTileSet(ViewerState &viewer);

// Draws 3 rows of 16 sprites of 16 x 16 pixels from `vram`. The frame is black unless it has 256 x 48 pixels.
void renderSpriteSet(ViewerState &viewer);
