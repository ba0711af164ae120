// Pictures to files of today.
#pragma once

#include "cli/arguments.h"

// Converts all files of the request, on several cores; refusals and failures go to standard error.
// Returns false when some file was not converted.
bool convertFiles(const CliRequest &request);
