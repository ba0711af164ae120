// Tooltips of the swatches: their names.
#pragma once

#include "shell/main_window.h"

// Gives each swatch its tooltip.
void makeSwatchTips(const MainWindow &main);

// Answers a notification of a tooltip that asks for its text; others are ignored.
void provideTipText(NMHDR &notification);
