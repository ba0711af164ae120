// Brings the window up to date with the viewer.
#pragma once

#include "shell/main_window.h"

// Compares the viewer's WindowModel with what was last shown and changes only what differs.
// Does nothing once the window is destroyed.
void syncWindow(MainWindow &main);
