// Keys of the main window, handled before its controls.
#pragma once

#include "state/viewer_state.h"

struct KeyPress {
  int code = 0; // virtual-key code
  bool ctrl = false;
  bool alt = false;
  bool shift = false;
  bool repeated = false; // held down
};

// Runs the key's command if it is enabled and the key is pressed with exactly the command's modifiers. False: no
// command, pass the key to the focused control.
bool pressKey(ViewerState &viewer, KeyPress key);
