// Pictures and frames of videos to image files.
#pragma once

#include "cli/inputs.h"

#include <span>

// Converts all inputs, with a line on standard error for each that failed and one for a batch. Returns whether all went
// well.
bool convertFiles(const CliRequest &request, std::span<const CliInput> inputs);
