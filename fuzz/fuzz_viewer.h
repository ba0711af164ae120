// A viewer without a window for the fuzz targets: one for all inputs, its files in memory.
#pragma once

#include "state/viewer_state.h"
#include "headless/headless_platform.h"

#include <cstdint>
#include <span>
#include <string>

struct FuzzViewer {
  ViewerState viewer;
  HeadlessPlatform platform;
};

// The viewer of this program as it is after start-up, with an empty disk.
FuzzViewer &freshViewer();

// Puts a file onto the disk.
void putFile(const std::string &path, std::span<const uint8_t> bytes);

// Takes the first byte off the input; 0 when it is empty.
uint8_t takeByte(std::span<const uint8_t> &input);
