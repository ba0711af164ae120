// What is known of the current file, for people.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Lines of a name, a tab and a value.
std::string imageInfo(const ViewerState &viewer);

// "Image Info": shows them.
void menuImageInfo_Click(ViewerState &viewer);
