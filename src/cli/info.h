// The window's content as text.
#pragma once

#include "state/viewer_state.h"

#include <string>

// A JSON object in one line, without a line break. Each byte that is not UTF-8 becomes U+FFFD.
std::string infoJson(const ViewerState &viewer);

// A readable line, without a line break.
std::string infoText(const ViewerState &viewer);
