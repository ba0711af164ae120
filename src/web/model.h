// The window as JSON, for the page.
#pragma once

#include "state/viewer_state.h"

#include <string>

// All that the page shows beside the pixels of the frame.
std::string modelJson(const ViewerState &viewer);
