// Synchronises the window with the viewer.
#pragma once

#include "shell/main_window.h"

// Compares the viewer's WindowModel with `main.shown` and updates the controls that differ. Does nothing after the
// window's destruction.
void syncWindow(MainWindow &main);
