// The settings of the Display menu.
#pragma once

#include "state/viewer_state.h"

// Reads them from the user's settings; a missing or wrong value means the start value.
void loadDisplaySettings(ViewerState &viewer);

void menuGrid_Click(ViewerState &viewer);
void menuFollowChanges_Click(ViewerState &viewer);
void menuOrderByNumber_Click(ViewerState &viewer);

// Opens a shown picture that has a short palette again.
void menuSamePalette_Click(ViewerState &viewer);
