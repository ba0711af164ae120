// The controls inside of the main window but MainView. They are made when first needed, those that every file needs
// once the first picture is on the screen: to make them all takes longer than all else until then.
#pragma once

#include "shell/main_window.h"

// Texts of the labels.
inline constexpr std::array<std::string WindowModel::*, 4> kLabelTexts = {&WindowModel::Label1, &WindowModel::Label2,
                                                                          &WindowModel::Label3, &WindowModel::Label4};

// The labels, with the texts shown at present, and the read-out, in their places; nothing where they are there already,
// and before the window is shown. What the system refuses to make is missing, here and below.
void provideLabels(MainWindow &main);

// The fields of the palette view, hidden and in their places; nothing where they are there already.
void provideSwatches(MainWindow &main);

// Play, Stop and the frame bar, hidden and still without a place. Returns whether they are new.
bool provideVideoControls(MainWindow &main);
