#include "pixels/stretching.h"

#include "base/buffers.h"

namespace {

template <typename Word>
bool stretched(const PixelRows<Word> &source, int32_t width, int32_t height, std::vector<Word> &target) {
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

} // namespace

bool stretchPicture(const PixelRows<uint32_t> &source, int32_t width, int32_t height, std::vector<uint32_t> &target) {
  return stretched(source, width, height, target);
}

bool stretchPicture(const PixelRows<uint8_t> &source, int32_t width, int32_t height, std::vector<uint8_t> &target) {
  return stretched(source, width, height, target);
}
