// The main window while a video is open: Play and Stop, the frame scroll bar, a view of twice the frame's size.
#pragma once

#include "pixels/bitmap.h"
#include "state/viewer_state.h"

// Sets up labels, menus, Play, Stop, scroll bar and view for frames of that description; a negative side counts as 0.
// Returns false, with nothing changed and the error shown, if there is not enough memory.
bool enterVideoMode(ViewerState &viewer, const PictureSettings &format);

// Removes Play, Stop and scroll bar. The last frame stays as a picture.
void leaveVideoMode(ViewerState &viewer);

// Shows a frame in the view. Pixels outside the frame are black.
void drawVideoFrame(ViewerState &viewer, const PixelView &frame);
