// The Preferences dialog.
#pragma once

#include "state/viewer_state.h"

#include <windows.h>

// Shows the dialog; returns when the user closes it.
void showPreferencesDialog(HWND owner, ViewerState &viewer);
