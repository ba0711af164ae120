// Standard input as a file.
#pragma once

#include "base/file_ops.h"

#include <string>

// Reads all of it, at most 1 GiB; once, before the first file is opened. Returns what went wrong, or an empty text.
std::string readStandardInput(const std::string &name);

// A file system that holds nothing but what was read, under the name given.
const FileOps &standardInputFiles();
