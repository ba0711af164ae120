// Paging through the files of the current file's folder. None of the four does anything before a file was named or
// while a video plays.
#pragma once

#include "state/viewer_state.h"

void openNextFile(ViewerState &viewer);
void openPreviousFile(ViewerState &viewer);
void openFirstFile(ViewerState &viewer);
void openLastFile(ViewerState &viewer);

// Lists the files that can be opened beside the current one, in the order that the system gives them, and finds the
// current one among them; `folderIndex` is 1 where it is not there. Without an open file the old list stays.
void rebuildFolderList(ViewerState &viewer);
