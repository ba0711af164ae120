// What every loader does after its checks: labels, the body into video memory, rendering.
#pragma once

#include "core/viewer_state.h"

// Fills Label1 to Label3 from the picture's description and clears the status line.
// Without a file all four labels are cleared; while a video plays nothing happens.
void showPictureInfo(ViewerState &viewer);

// Shows "Loading..." and reads the file from `position` (1-based) on into `vram`, zero where the file ends.
void loadVram(ViewerState &viewer, int32_t position);

// Reads the file from `position` (1-based) on into `packedData`, zero where the file ends, and shows "Depacking...".
void loadPackedData(ViewerState &viewer, int32_t position);

// Last step of every loader: renders, sizes the view and enables the commands that need a picture.
void renderAndShow(ViewerState &viewer);
