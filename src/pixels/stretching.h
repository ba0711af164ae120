// A picture at another size.
#pragma once

#include "base/buffers.h"
#include "pixels/bitmap.h"

#include <cstdint>
#include <type_traits>
#include <vector>

// Fills `target` with width x height words, each the source word that it lies on: nothing is smoothed. Returns false
// if there is not enough memory.
template <typename Word>
bool stretchPicture(const std::type_identity_t<PixelRows<Word>> &source, int32_t width, int32_t height,
                    std::vector<Word> &target) {
  if (!reserve(target, static_cast<size_t>(width) * static_cast<size_t>(height))) return false;
  target.clear();
  for (int64_t y = 0; y < height; ++y) {
    const int64_t line = y * source.height / height * source.width;
    for (int64_t x = 0; x < width; ++x) {
      target.push_back(source.words[static_cast<size_t>(line + x * source.width / width)]);
    }
  }
  return true;
}
