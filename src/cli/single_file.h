// The commands that write one file from one input: thumb, video and sound.
#pragma once

#include "cli/inputs.h"

// Returns false, with a line on standard error, on failure.
bool writeSingleFile(const CliRequest &request, const CliInput &input);
