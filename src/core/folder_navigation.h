// Paging through the files of the current file's folder or disk, and through the disk images of a folder. The commands
// do nothing before a file was named, and while a file loads or a video plays.
#pragma once

#include "state/viewer_state.h"

void openNextFile(ViewerState &viewer);
void openPreviousFile(ViewerState &viewer);
void openFirstFile(ViewerState &viewer);
void openLastFile(ViewerState &viewer);

// Open another disk image beside that of the current file; without a disk they do nothing.
void openNextDisk(ViewerState &viewer);
void openPreviousDisk(ViewerState &viewer);

// Lists the supported files in the current file's folder or on its disk. `folderIndex` is the
// current file's position, or 1 if it is not listed. If the path tried last was ignored, the folder is that of the file
// opened last. Without an open file the old list stays.
void rebuildFolderList(ViewerState &viewer);
