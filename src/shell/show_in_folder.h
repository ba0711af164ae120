// The desktop's file manager.
#pragma once

#include <string>

// Opens the folder of a file, given by its full path, with the file selected. Returns false if there is no such file,
// or if the file manager does not start.
bool showInFileManager(const std::string &path);
