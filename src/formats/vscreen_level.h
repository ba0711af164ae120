// Graphics of VSCREEN game levels: borders, tile sets, sprite sets.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

// A tile set has no header; its length and its first byte tell it from a BLOAD file of the same extension.
inline constexpr int64_t kTileSetBytes = 4128;

// Loads the tile set that is already open.
void loadTileSet(ViewerState &viewer);

void loadBorder(ViewerState &viewer);    // .SCR
void loadSpriteSet(ViewerState &viewer); // .TGS, with its colours in a .TCS file beside it

// Draws 8 rows of 32 tiles of 8 x 8 pixels from `vram`. Does nothing unless the frame is 256 x 64, all of which it
// fills.
void renderTileSet(ViewerState &viewer);
bool tileSetFills(const ViewerState &viewer);

// Draws 3 rows of 16 sprites of 16 x 16 pixels from `vram`. Does nothing unless the frame is 256 x 48.
void renderSpriteSet(ViewerState &viewer);
