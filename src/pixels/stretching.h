// A picture at another size.
#pragma once

#include "pixels/bitmap.h"

#include <cstdint>
#include <vector>

// Fills `target` with width x height words, each the source word that it lies on: nothing is smoothed. Returns false
// if there is not enough memory.
bool stretchPicture(const PixelRows<uint32_t> &source, int32_t width, int32_t height, std::vector<uint32_t> &target);
bool stretchPicture(const PixelRows<uint8_t> &source, int32_t width, int32_t height, std::vector<uint8_t> &target);
