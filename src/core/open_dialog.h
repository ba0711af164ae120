// The open-file dialog and its filters.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <string>

struct FileFilter {
  const char *description;
  const char *pattern;
};

inline constexpr size_t kPictureFilterCount = 29;

// Pictures, videos and disk images; the kinds are also listed in the help.
extern const std::array<FileFilter, kPictureFilterCount> kPictureFilters;

// Ask for a picture or video, or for a palette file. Return its path; empty if cancelled.
std::string askPictureName(const ViewerState &viewer);
std::string askPaletteName(const ViewerState &viewer);

// Asks for a picture or video and opens it.
void menuOpen_Click(ViewerState &viewer);
