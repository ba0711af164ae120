// The controls of the main window other than MainView, created on first use, and the labels after the first paint:
// creating all of them would dominate start-up. A control that the system refuses to create stays nullptr.
#pragma once

#include "shell/main_window.h"

// Texts of Label1 to Label4.
inline constexpr std::array<std::string WindowModel::*, 4> kLabelTexts = {&WindowModel::Label1, &WindowModel::Label2,
                                                                          &WindowModel::Label3, &WindowModel::Label4};

// Creates and places the labels, with the texts of `main.shown`, and the read-out.
void makeLabels(MainWindow &main);

// Creates and places the swatches of the palette view, hidden. Does nothing if they exist.
void provideSwatches(MainWindow &main);

// Creates Play, Stop and the frame bar, hidden and not yet placed. Returns false if they exist.
bool provideVideoControls(MainWindow &main);
