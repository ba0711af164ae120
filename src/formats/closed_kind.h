// Kinds of file that the viewer knows by name but cannot read.
#pragma once

#include "core/viewer_state.h"

// Takes the file as the current one and reports it as not valid.
void loadClosedKind(ViewerState &viewer);
