// The files opened last, kept from one start to the next.
#pragma once

#include "state/viewer_state.h"

// Reads the list from the user's settings.
void loadRecentFiles(ViewerState &viewer);

// Puts the shown file first if it is the one opened last. Other windows may have written the list meanwhile: it is read
// again before.
void noteRecentFile(ViewerState &viewer);

// Opens the file of that item of the submenu, or clears the list.
void chooseRecentFile(ViewerState &viewer, size_t index);
