// Whole videos and their sound for encoders. Both stream: memory does not grow with the length of the video.
#pragma once

#include "cli/arguments.h"
#include "cli/opened_file.h"

#include <string>

// Why the opened file has no video or sound to be written; empty if it has.
std::string refusalOfFilm(const ViewerState &viewer, CliCommand command);

// Puts all frames as YUV4MPEG2, 4:4:4, by ITU-R BT.601 in its limited range. Returns what went wrong, or an empty text.
std::string putVideo(OpenedFile &file, const PutBytes &put);

// Puts the sound of all frames as a WAVE file.
std::string putSound(OpenedFile &file, const PutBytes &put);
