// Commands on the palette of the shown picture. Each does nothing where the picture does not allow it.
#pragma once

#include "state/viewer_state.h"

// Load Palette: asks for a palette file, takes its first `colourCount` entries and draws the picture anew. A file of
// less than 32 bytes changes nothing; an entry that is no colour gives the standard colours, without drawing: intended.
// Layout of an entry: core/palette.h.
void menuLoadPal_Click(ViewerState &viewer);

// Store Palette: keeps the colours until the next Store, also while other pictures are shown.
void menuSavePal_Click(ViewerState &viewer);

// Restore Palette: draws the picture in the stored colours, where it has as many as were stored.
void menuRestPal_Click(ViewerState &viewer);

// View Palette: shows or hides the swatches, a colour each.
void menuViewPal_Click(ViewerState &viewer);
