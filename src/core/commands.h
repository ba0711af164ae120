// Commands of the main window. Open and Close are ignored during a load, and deferred to the end of a video's run.
#pragma once

#include "state/viewer_state.h"

#include <optional>
#include <string>
#include <string_view>

// Loads the preferences, sets up the empty window, then opens the path in `commandLine`, which excludes the program.
void startViewer(ViewerState &viewer, std::string_view commandLine);

// The path in `commandLine`; nullopt if it is empty or has several paths.
std::optional<std::string> pathFromCommandLine(std::string_view commandLine);

// Ends the activity, then runs the command requested during it.
void endActivity(ViewerState &viewer);

// Opens `path` as the Open command, a drop or the command line does.
void openPath(ViewerState &viewer, const std::string &path);

// Opens the current file again.
void menuReload_Click(ViewerState &viewer);

// Shows the current file, or its disk image, in the desktop's file manager. A failure shows a message.
void menuShowInFolder_Click(ViewerState &viewer);

void menuClose_Click(ViewerState &viewer);

// Shows small pictures at twice their size, or at their own.
void menuZoom_Click(ViewerState &viewer);

// Shows each line of the picture twice, or once.
void menuDoubleHeight_Click(ViewerState &viewer);

// Shows the picture alone on the whole monitor, or the window again.
void menuFullScreen_Click(ViewerState &viewer);

// Closes the files and ends the program.
void menuExit_Click(ViewerState &viewer);
