// A picture as a PNG file.
#pragma once

#include "pixels/bitmap.h"

#include <cstdint>
#include <span>
#include <string>

// The colour numbers that a picture is drawn with; none at all if it has no such.
struct ColourNumbers {
  std::span<const uint8_t> entries;  // one a pixel, top row first, each below palette.size()
  std::span<const uint32_t> palette; // words 0x00RRGGBB, at most 256
};

// Puts the file: indexed with the whole palette in its order, or 8-bit RGB if there are no colour numbers. The file
// says that pixels are twice as high as wide if `tallPixels`. Holds less than 1 MiB. Returns what went wrong in `put`,
// or that the picture is empty, which the format does not have.
std::string putPng(const PixelView &picture, const ColourNumbers &numbers, bool tallPixels, const PutBytes &put);
