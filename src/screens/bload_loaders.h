// Loaders of the bitmap screens saved with BSAVE.
#pragma once

#include "core/viewer_state.h"

void loadScreen5(ViewerState &viewer);
void loadScreen6(ViewerState &viewer);
void loadScreen7(ViewerState &viewer);
void loadScreen8(ViewerState &viewer);
void loadScreen10(ViewerState &viewer); // Screens 10 and 11 differ only in how BASIC draws on them
void loadScreen12(ViewerState &viewer);
