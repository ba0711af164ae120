// The text of Image Info.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Facts about the current file: lines of name, tab, value.
std::string imageInfo(const ViewerState &viewer);

// "Image Info": shows the text.
void menuImageInfo_Click(ViewerState &viewer);
