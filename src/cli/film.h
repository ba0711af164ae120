// Whole videos and their sound for encoders. Both stream: memory does not grow with the length of the video.
#pragma once

#include "cli/arguments.h"

#include <array>
#include <cstdint>

// Y, Cb and Cr of a colour word 0x00RRGGBB by ITU-R BT.601, 16 to 235 and 16 to 240.
std::array<uint8_t, 3> yCbCr(uint32_t colour);

// Writes all frames as YUV4MPEG2, 4:4:4. Returns false, with a line on standard error, on failure.
bool writeVideo(const CliRequest &request);

// Writes the sound of all frames as a WAVE file. Returns false, with a line on standard error, on failure.
bool writeSound(const CliRequest &request);
