// What the main window draws itself: fields that show a colour, the read-out under the mouse, the buttons of a video.
#pragma once

#include "shell/main_window.h"

#include <string>

// Name of a swatch for those who cannot see it: "Color 2: #24DA24".
std::string swatchName(size_t index, uint32_t colour);

// Draws one of them as the window's model has it.
void drawItem(const MainWindow &main, const DRAWITEMSTRUCT &item);
