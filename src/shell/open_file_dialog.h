// The system's open-file dialog.
#pragma once

#include <windows.h>

#include <string>

// Shows the dialog over `owner`; see PlatformOps::askOpenFileName.
std::string runOpenFileDialog(HWND owner, const std::string &filter, const std::string &initialDirectory);
