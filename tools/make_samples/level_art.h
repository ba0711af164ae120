#pragma once

// Drawings for level files: tiles, a border and sprites.

#include "drawing.h"
#include "vscreen_encoder.h"

namespace samples {

// 256 tiles in 32 columns, two colours a line, in kLevelPalette.
extern const Palette kLevelPalette;
IndexedPicture levelTiles();

// Score, energy and items below the playing field, 256 x 40 in the default palette.
IndexedPicture statusBorder();

// Sets of 46 sprites in the default palette: the figures of a level; letters, digits and signs.
std::vector<LayeredSprite> levelFigures();
std::vector<LayeredSprite> letterSprites();

} // namespace samples
