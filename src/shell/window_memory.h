// The main window's place and size, kept from one start to the next.
#pragma once

#include "state/viewer_state.h"

#include <windows.h>

struct MainWindow;

// What the window that was closed last has left; the start values let the system choose.
struct WindowMemory {
  POINT corner{CW_USEDEFAULT, CW_USEDEFAULT};
  SIZE size{CW_USEDEFAULT, CW_USEDEFAULT};
  bool sizedByHand = false; // `size` is that of the user
  bool maximised = false;
};

WindowMemory recallWindow(const ViewerState &viewer);

// Stores the restored place of the window, also if it is in full screen, maximised or minimised; the size only if it is
// the user's.
void rememberWindow(const MainWindow &main);
