#include "pixels/stretching.h"

#include "base/buffers.h"

bool stretchPicture(const PixelView &source, int32_t width, int32_t height, std::vector<uint32_t> &target) {
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
