// Paging through the files of the current file's folder. The four commands do nothing before a file was named, and
// while a file loads or a video plays.
#pragma once

#include "state/viewer_state.h"

void openNextFile(ViewerState &viewer);
void openPreviousFile(ViewerState &viewer);
void openFirstFile(ViewerState &viewer);
void openLastFile(ViewerState &viewer);

// Lists the supported files in the current file's folder, in the system's order or by number. `folderIndex` is the
// current file's position, or 1 if it is not listed. If the path tried last was ignored, the folder is that of the file
// opened last. Without an open file the old list stays.
void rebuildFolderList(ViewerState &viewer);
