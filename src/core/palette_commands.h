// Commands on the palette of the shown picture. Each does nothing if the picture does not allow it.
#pragma once

#include "state/viewer_state.h"

// Load Palette: asks for a palette file, reads its first `colourCount` entries and redraws the picture. A file of less
// than 32 bytes changes nothing. An invalid entry gives the standard colours without redrawing: intended, the picture
// keeps its right colours. Layout of an entry: state/palette.h.
void menuLoadPal_Click(ViewerState &viewer);

// A file was dropped onto the window. On a picture a palette file is loaded as by Load Palette, or ignored if that is
// disabled; any other file is opened.
void dropFile(ViewerState &viewer, const std::string &path);

// Store Palette: stores the colours until the next Store, across pictures.
void menuSavePal_Click(ViewerState &viewer);

// Restore Palette: redraws the picture in the stored colours, if their number is the picture's.
void menuRestPal_Click(ViewerState &viewer);

// View Palette: shows or hides the swatches.
void menuViewPal_Click(ViewerState &viewer);
