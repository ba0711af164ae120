// Pictures of the paint program DD-Graph.
#pragma once

#include "state/viewer_state.h"

void loadDdGraphScreen(ViewerState &viewer);     // .GE5
void loadDdGraphRectangle(ViewerState &viewer);  // .DAT
void loadDdGraphCompressed(ViewerState &viewer); // .CMP
