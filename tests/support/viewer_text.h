// A viewer's state as one line of text, so that a failed comparison shows what differs.
#pragma once

#include "state/viewer_state.h"

#include <string>
#include <string_view>
#include <vector>

// The enabled ones of the menu items that depend on the picture: "Close View ".
std::string menuText(const WindowModel &window);

// Everything of the picture that a refused file must leave as it was, but the check mark of 1:2.
std::string pictureText(const ViewerState &viewer);

// The words of `list` between blanks.
std::vector<std::string> wordsOf(std::string_view list);
