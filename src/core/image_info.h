// The text of Image Info.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Facts about the current file, which is opened if it is not: lines of name, tab, value.
std::string imageInfo(ViewerState &viewer);

// "Image Info": shows the text.
void menuImageInfo_Click(ViewerState &viewer);
