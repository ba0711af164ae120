// HAM pictures: 512 pixels wide, 16 colours at a time, two of them changed after every line.
#pragma once

#include "state/viewer_state.h"

void LoadHamPicture(ViewerState &viewer);

// What only the header of the open file tells, for people: lines of a name, a tab and a value.
std::string hamDetails(const ViewerState &viewer);

// Draws the two pages of `hamPages` as the even and the odd lines of `frameBits`; lines that neither page holds are
// black. `palette` is left as the last line of the odd page has it. Does nothing unless the frame is 512 pixels wide.
void RenderHamPicture(ViewerState &viewer);
