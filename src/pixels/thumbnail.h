// A picture fitted into a square.
#pragma once

#include "pixels/bitmap.h"

#include <cstdint>
#include <vector>

// The largest side that programs ask for.
inline constexpr int32_t kMaxThumbnailSide = 4096;

struct Thumbnail {
  std::vector<uint32_t> words; // 0x00RRGGBB, top row first
  int32_t width = 0;
  int32_t height = 0;
};

// The picture, with lines twice as high if `tallPixels`, at the largest whole factor at which it fits into side x side.
// A larger one is reduced to that side, each pixel the mean of the area that it covers. Returns false if the picture is
// empty or there is not enough memory.
bool makeThumbnail(const PixelView &picture, bool tallPixels, int32_t side, Thumbnail &thumbnail);
