// Font, size and place of the main window and its controls on the screen.
#pragma once

#include "shell/main_window.h"

// Takes over the screen resolution and the system's message font and gives it to the labels.
void updateFont(MainWindow &main, UINT dotsPerInch);
void releaseFont(MainWindow &main);

// Puts MainView and the labels where the present client area wants them.
void placeControls(MainWindow &main);

// Sizes the window around its content and keeps it on the work area of its monitor. A maximised or minimised window is
// left alone until it is restored, a new one until it is shown.
void fitWindow(MainWindow &main);

// Moves the window back onto the work area, with the size that the user gave it.
void keepWindowOnWorkArea(const MainWindow &main);

// Shows the window for the first time, sized around its content, in the middle of the work area.
void showFitted(MainWindow &main, int showCommand);

// The least size to which the user may drag the frame.
SIZE leastWindowSize(const MainWindow &main);
