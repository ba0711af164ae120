// Pictures of the paint program DD-Graph. The loaders answer as FileKind::load.
#pragma once

#include "state/viewer_state.h"

bool loadDdGraphScreen(ViewerState &viewer);     // .GE5
bool loadDdGraphRectangle(ViewerState &viewer);  // .DAT
bool loadDdGraphCompressed(ViewerState &viewer); // .CMP
