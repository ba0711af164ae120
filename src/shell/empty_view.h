// The picture area while there is no picture.
#pragma once

#include "shell/main_view.h"

// Writes how to open a picture into the middle of `area`, which has been filled.
void drawEmptyText(const MainView &view, HDC screen, const RECT &area);
