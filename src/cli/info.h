// What the window would show, as text.
#pragma once

#include "state/viewer_state.h"

#include <string>

// One line of JSON, without a line break. Texts that are not UTF-8 get U+FFFD for each byte that is not.
std::string infoJson(const ViewerState &viewer);

// One line for people, without a line break.
std::string infoText(const ViewerState &viewer);
