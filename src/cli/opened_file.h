// A file that a command line names, opened as in a new window.
#pragma once

#include "cli/inputs.h"
#include "headless/opened_file.h"

#include <string>

// Opens the input in an empty window, and loads the palette file if there is one and the picture allows it. A palette
// that is not taken counts as if the picture were not shown.
void openInput(OpenedFile &file, const CliInput &input, const std::string &palette = "");

// Frames of a video; 1 for a picture.
int32_t framesOf(const ViewerState &viewer);

// Shows a frame of a video, as the scroll bar does. Returns false if the file does not have it. A picture or a video
// without frames has frame 0 only.
bool showFrame(OpenedFile &file, int32_t frame);

// Why the file's picture is not shown, one line for standard error; empty if it is shown.
std::string refusal(const ViewerState &viewer);
