// The open-file dialog: what it offers.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <string>

struct FileFilter {
  const char *description;
  const char *pattern;
};

inline constexpr size_t kPictureFilterCount = 28;

// Pictures and videos; the kinds are also listed in the help.
extern const std::array<FileFilter, kPictureFilterCount> kPictureFilters;

// Asks for a palette file where `paletteDialog` is set, for a picture or video otherwise. Returns its path, or an empty
// text.
std::string askOpenFileName(const ViewerState &viewer, const std::string &initialDirectory);

// Asks for a picture or video and opens it.
void menuOpen_Click(ViewerState &viewer);
