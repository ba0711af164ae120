// Font, size and position of the main window and its controls.
#pragma once

#include "shell/main_window.h"

// Loads the system's message font for that resolution, sets it in the labels and updates the metrics.
void updateFont(MainWindow &main, UINT dotsPerInch);
void releaseFont(MainWindow &main);

// Lays the controls out for the current client area.
void placeControls(MainWindow &main);

// Size of the client area that shows all of the content.
SIZE contentToShow(const MainWindow &main);

// Sizes the window to its content, unless the user has sized it or the picture is fitted, and places it as
// placeWindow() does. A maximised or minimised window is fitted when it is restored, one that the user moves at the end
// of the move; a hidden one and full screen are left alone.
void fitWindow(MainWindow &main);

// Sizes the window to its content whatever its size was; a maximised one is restored.
void fitWindowToPicture(MainWindow &main);

// Moves the window onto the work area of its monitor, into the centre if it is always centred, and keeps its size.
// `how` are flags of SetWindowPos().
void placeWindow(MainWindow &main, UINT how = SWP_NOZORDER | SWP_NOACTIVATE);

// Shows the window for the first time, where it was created, sized to its content and placed as above. It evades other
// windows of the program, and is maximised if the one closed last was.
void showFitted(MainWindow &main, int showCommand);

// The user begins or ends to move or resize the window.
void setMoving(MainWindow &main, bool moving);

// The size that the window will have at another scale.
SIZE sizeAtScale(const MainWindow &main, UINT dotsPerInch);

// Takes a new scale and the place that the system gives for it.
void changeScale(MainWindow &main, UINT dotsPerInch, const RECT &place);

// Takes over fonts and colours of the system, which may have changed. Fits the window if the text has another size, or
// if the caller knows of a changed frame.
void changeSettings(MainWindow &main, bool frameChanged);

// Minimum size to which the user can drag the frame.
SIZE minWindowSize(const MainWindow &main);
