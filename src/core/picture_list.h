// The pictures and videos of a folder, as paging goes through them.
#pragma once

#include "state/viewer_state.h"

#include <string>
#include <vector>

// Names in a folder, which ends in a separator or is empty, in the system's order or by number. Of a disk image: the
// paths on it, folder after folder.
std::vector<std::string> listPictures(const ViewerState &viewer, const std::string &folder);

// Disk images in a folder, in the same order.
std::vector<std::string> listDiskImages(const ViewerState &viewer, const std::string &folder);
