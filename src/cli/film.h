// Whole videos and their sound for encoders. Both stream: memory does not grow with the length of the video.
#pragma once

#include "cli/arguments.h"

// Writes all frames as YUV4MPEG2, 4:4:4, by ITU-R BT.601 in its limited range. Returns false, with a line on standard
// error, on failure.
bool writeVideo(const CliRequest &request);

// Writes the sound of all frames as a WAVE file. Returns false, with a line on standard error, on failure.
bool writeSound(const CliRequest &request);
