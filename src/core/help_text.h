// The program's help.
#pragma once

#include "state/viewer_state.h"

#include <string>

// Keys, tips and kinds of file, as lines of text; columns are separated by tabs.
std::string helpText();

void menuHelp_Click(ViewerState &viewer);

void menuAbout_Click(ViewerState &viewer);
