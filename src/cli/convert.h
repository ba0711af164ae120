// Conversion of pictures to BMP and PPM.
#pragma once

#include "cli/arguments.h"

// Converts all files of the request, on several cores. Prints errors to standard error. Returns false if a file failed.
bool convertFiles(const CliRequest &request);
