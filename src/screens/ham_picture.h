// HAM pictures: 512 pixels wide, 16 colours, two of which change after every line.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Answers as FileKind::load.
bool LoadHamPicture(ViewerState &viewer);

// Image Info lines found only in the file header.
std::string hamDetails(const ViewerState &viewer);

// Draws the two pages of `hamPages` as the even and the odd lines of `frameBits`; lines beyond both pages are black.
// `palette` keeps the colours of the odd page's last line. Does nothing unless the frame is 512 pixels wide.
void RenderHamPicture(ViewerState &viewer);
