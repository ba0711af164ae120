// Standard input as a file.
#pragma once

#include <string>

// Reads all of it, at most 1 GiB, into the memory file `name`; once, before that is opened. Returns what went wrong, or
// an empty text.
std::string readStandardInput(const std::string &name);
