// The labels below the picture: size, depth, colours, and the status line with its errors.
#pragma once

#include "state/viewer_state.h"

// The colour text of the picture's description, or nullptr if the description has none.
const char *colourText(const ViewerState &viewer);

// Fills Label1 to Label3 from the picture's description and clears the status line.
// Without a file all four labels are cleared. While a video plays, nothing happens.
void showPictureInfo(ViewerState &viewer);

// Shows why the file is not shown; `text` is "*** Error: ...". Each of the three returns false, as a loader does then.
bool reportError(ViewerState &viewer, const std::string &text);

// The file is not what its extension says.
bool reportNotValid(ViewerState &viewer);

// The picture needs more memory than there is.
bool reportNoMemory(ViewerState &viewer);
