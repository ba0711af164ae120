// Commands of the main window. One that would load or close is ignored while a load is under way.
#pragma once

#include "state/viewer_state.h"

#include <optional>
#include <string>
#include <string_view>

// Window load: sizes, the reset, then the path of the command line. `commandLine` is all that follows the program's
// name.
void startViewer(ViewerState &viewer, std::string_view commandLine);

// The one path that `commandLine` holds, or nothing where it is empty or holds several paths.
std::optional<std::string> pathFromCommandLine(std::string_view commandLine);

// Ends what began with setting `loadUnderWay`, and then exits where that was asked for meanwhile.
void endLoad(ViewerState &viewer);

// Opens `path` as the Open command, a drop or the command line does.
void openPath(ViewerState &viewer, const std::string &path);

// Opens the current file again, as it is on the disk now.
void menuReload_Click(ViewerState &viewer);

void menuClose_Click(ViewerState &viewer);

// Shows small pictures at twice their size, or at their own.
void menuZoom_Click(ViewerState &viewer);

// Shows each line of the picture twice, or once.
void menuDoubleHeight_Click(ViewerState &viewer);

// Puts the picture at its own size onto the clipboard as a bitmap. A failure is shown in a message.
void menuCopyClipboard_Click(ViewerState &viewer);

// Closes the files and ends the program, after the load or the run of a video where one is under way.
void menuExit_Click(ViewerState &viewer);
