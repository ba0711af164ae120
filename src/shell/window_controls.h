// The controls inside of the main window. Those that most files do without are made when one first needs them: all of
// them would take longer than all else until the first picture stands.
#pragma once

#include "shell/main_window.h"

// The picture area, the labels and the read-out. Returns false when the system refuses.
bool createControls(MainWindow &main);

// The fields of the palette view, hidden and in their places; nothing where they are there already. What the system
// refuses to make is missing, here and below.
void provideSwatches(MainWindow &main);

// Play, Stop and the frame bar, hidden and still without a place. Returns whether they are new.
bool provideVideoControls(MainWindow &main);
