// The Preferences dialog.
#pragma once

#include "state/viewer_state.h"

#include <windows.h>

// Waits until the user has closed it.
void showPreferencesDialog(HWND owner, ViewerState &viewer);
