// The second file that a picture of some kinds needs: the name of the first with other extension letters.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Its name for the open file; empty if the kind needs none.
std::string companionName(const ViewerState &viewer);

// Opens it; its name may be written in any case. Returns false if the kind needs none, and on failure.
bool openCompanion(const ViewerState &viewer, InputFile &file);
