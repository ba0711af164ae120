// A dialog with a text that can be selected and copied.
#pragma once

#include <windows.h>

#include <string>

// Shows the dialog; returns when the user closes it. Lines end in "\n", tabs separate columns.
void showTextDialog(HWND owner, const std::string &title, const std::string &text);
