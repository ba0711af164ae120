// A viewer of its own for each file, as a fresh window would open it.
#pragma once

#include "core/viewer_state.h"
#include "headless/headless_platform.h"

#include <string>

struct OpenedFile {
  ViewerState viewer;
  HeadlessPlatform platform;
};

// Starts `file` as an empty window and opens `path` in it.
void openFile(OpenedFile &file, const std::string &path);

// The viewer's error line where its status line holds one, or an empty text.
std::string errorLine(const ViewerState &viewer);

// Why the file's picture is not shown, one line for standard error; empty where it is shown.
std::string refusal(const ViewerState &viewer);
