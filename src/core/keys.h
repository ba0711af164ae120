// The keyboard of the main window, which sees each key before its controls.
#pragma once

#include "state/viewer_state.h"

struct KeyPress {
  int code = 0; // virtual-key code
  bool ctrl = false;
  bool alt = false;
};

// Runs what the key stands for, as far as that can be done now. Returns false where it stands for nothing; then it is
// for the controls.
bool pressKey(ViewerState &viewer, KeyPress key);
