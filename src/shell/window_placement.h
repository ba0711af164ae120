// Font, size and position of the main window and its controls.
#pragma once

#include "shell/main_window.h"

// Loads the system's message font for that resolution, sets it in the labels and updates the metrics.
void updateFont(MainWindow &main, UINT dotsPerInch);
void releaseFont(MainWindow &main);

// Lays the controls out for the current client area.
void placeControls(MainWindow &main);

// Sizes the window to its content and keeps it on the work area of its monitor. A maximised or minimised window is
// fitted when it is restored; a hidden one is left alone.
void fitWindow(MainWindow &main);

// Moves the window onto the work area and keeps its size.
void keepWindowOnWorkArea(const MainWindow &main);

// Shows the window, sized to its content, in the centre of the work area.
void showFitted(MainWindow &main, int showCommand);

// Minimum size to which the user can drag the frame.
SIZE minWindowSize(const MainWindow &main);
