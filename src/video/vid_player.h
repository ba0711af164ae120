// SymbOS videos: frames of 4 or 16 colours, silent.
#pragma once

#include "state/viewer_state.h"

// Takes over the open file, which stays open until another one is opened, and its header, and shows frame 0. A header
// that is not valid is refused with a message: false is returned, and `fileOpen` cleared.
bool openVid(ViewerState &viewer);

// Reads and shows the frame at the scroll bar's place.
void showVidFrame(ViewerState &viewer);

// Plays from the scroll bar's place to the end, or until `playing` is cleared during an event pass. The caller has set
// `playing`.
void playVid(ViewerState &viewer);
