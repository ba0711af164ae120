// A viewer of its own for each file, as a fresh window would open it.
#pragma once

#include "state/viewer_state.h"
#include "headless/headless_platform.h"

#include <string>

struct OpenedFile {
  ViewerState viewer;
  HeadlessPlatform platform;

  OpenedFile() = default;
  ~OpenedFile() { closeInputFile(viewer.inputFile); } // a program that goes through many files has only so many open
  OpenedFile(const OpenedFile &) = delete;
  OpenedFile &operator=(const OpenedFile &) = delete;
};

// Starts `file` as an empty window and opens `path` in it. What was open in it before is gone; its memory serves again.
void openFile(OpenedFile &file, const std::string &path);

// Frames of a video; 1 for a picture.
int32_t videoFrames(const ViewerState &viewer);

// Frames a second of a video, at least 1.
int videoRate(const ViewerState &viewer);

// Shows a frame of a video, as the scroll bar does. Returns false where the file has no such frame; a picture, and a
// video without frames, has frame 0 only.
bool showFrame(OpenedFile &file, int32_t frame);

// The viewer's error line, or the message that it refused the file with; an empty text where there is neither.
std::string errorLine(const ViewerState &viewer);

// Why the file's picture is not shown, one line for standard error; empty where it is shown.
std::string refusal(const ViewerState &viewer);
