// Graphics of the SymbOS desktop: tiles in rows.
#pragma once

#include "state/viewer_state.h"

void loadSymbosGraphic(ViewerState &viewer);
