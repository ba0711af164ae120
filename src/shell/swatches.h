// Owner-drawn controls of the main window: swatches, read-out, video buttons.
#pragma once

#include "shell/main_window.h"

#include <string>

// Accessible name and tooltip of a swatch: "Color 2: #24DA24   R1 G6 B1".
std::string swatchName(size_t index, uint32_t colour);

// Draws the control of a WM_DRAWITEM from `main.shown`.
void drawItem(const MainWindow &main, const DRAWITEMSTRUCT &item);
