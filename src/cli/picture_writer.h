// The bytes of a shown picture in the format asked for.
#pragma once

#include "base/file_ops.h"
#include "cli/arguments.h"
#include "state/viewer_state.h"

#include <string>

// Puts the picture at its own size, or as the window shows it. Returns what went wrong, or an empty text.
std::string putPicture(ViewerState &viewer, const CliRequest &request, const PutBytes &put);

// Puts the picture fitted into a square of the request's size.
std::string putThumbnail(const ViewerState &viewer, const CliRequest &request, const PutBytes &put);
