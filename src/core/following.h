// Follow Changes: the open file is loaded again if it changes on disk. The platform reports changes and asks when the
// file is to be looked at.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The open file is about to be loaded: its first look is due soon, since it may change before it is watched.
void startFollowing(ViewerState &viewer);

// The folder of the system that holds the open file or its disk image; it ends in a separator or is empty.
std::string followedFolder(const ViewerState &viewer);

// Names in it of the files whose changes are to be reported; none if no file is followed.
std::vector<std::string> followedNames(const ViewerState &viewer);

// One of these files may have changed. It is looked at after a time without further changes.
void noteFileChange(ViewerState &viewer);

// Milliseconds until followFile() is to be called; nullopt if no look is due, and during an activity.
std::optional<uint32_t> followDelay(const ViewerState &viewer);

// Looks at the files, if that is due, and loads the picture or video again if they differ. A refused, empty, missing or
// unreadable file changes nothing.
void followFile(ViewerState &viewer);
