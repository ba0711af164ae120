// A dialog that shows a text which can be selected and copied.
#pragma once

#include <windows.h>

#include <string>

// Waits until the user has closed it. Lines end in "\n", columns are parted by tabs.
void showTextDialog(HWND owner, const std::string &title, const std::string &text);
