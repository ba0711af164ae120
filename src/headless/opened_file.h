// A file opened as in a new window.
#pragma once

#include "headless/headless_platform.h"
#include "pixels/thumbnail.h"
#include "state/viewer_state.h"

#include <cstdint>

struct OpenedFile {
  ViewerState viewer;
  HeadlessPlatform platform;

  OpenedFile() = default;
  ~OpenedFile() { closeInputFile(viewer.inputFile); } // releases the file handle
  OpenedFile(const OpenedFile &) = delete;
  OpenedFile &operator=(const OpenedFile &) = delete;
};

// Resets `file` to an empty window, reusing its memory.
void emptyWindow(OpenedFile &file);

// The shown picture fitted into a square of `side` pixels. Returns false if it is empty or there is not enough memory.
bool thumbnailOf(const ViewerState &viewer, int32_t side, Thumbnail &thumbnail);
