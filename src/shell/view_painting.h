// Paints MainView: the visible part of the picture, its grid and the field around it.
#pragma once

#include "shell/main_view.h"

#include <windows.h>

// Where the top left corner of the scaled picture is in the client area: in each direction the picture is centred if it
// fits, else it is scrolled.
POINT pictureOrigin(const MainView &view);

// Paints every pixel of the update region; none while the picture is being replaced, which the one before outlives.
void paintView(const MainView &view, HDC screen);
