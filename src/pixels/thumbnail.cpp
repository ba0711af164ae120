#include "pixels/thumbnail.h"

#include "base/buffers.h"
#include "pixels/stretching.h"

#include <algorithm>
#include <array>

namespace {

// What of one axis a target pixel covers. Source pixels are `target` units long, target pixels `source` units.
struct Span {
  int64_t first; // source pixel
  int64_t begin; // in units
  int64_t end;
};

Span spanOf(int64_t place, int64_t source, int64_t target) {
  return {.first = place * source / target, .begin = place * source, .end = (place + 1) * source};
}

// Calls `use` with each source pixel of the span and how much of it is covered.
template <typename Use> void forEachCovered(const Span &span, int64_t target, Use use) {
  for (int64_t pixel = span.first; pixel * target < span.end; ++pixel) {
    use(pixel, std::min(span.end, (pixel + 1) * target) - std::max(span.begin, pixel * target));
  }
}

// A line of sums, three channels a pixel, each line and column weighted by how much of it is covered.
using Sums = std::vector<std::array<int64_t, 3>>;

void addLine(const PixelView &picture, int64_t line, int64_t weight, Sums &sums) {
  const auto target = static_cast<int64_t>(sums.size());
  const uint32_t *words = picture.words.data() + line * picture.width;
  for (int64_t x = 0; x < target; ++x) {
    forEachCovered(spanOf(x, picture.width, target), target, [&](int64_t column, int64_t covered) {
      auto &sum = sums[static_cast<size_t>(x)];
      for (size_t channel = 0; channel < 3; ++channel) {
        sum[channel] += covered * weight * (words[column] >> 8 * channel & 0xFF);
      }
    });
  }
}

void reduce(const PixelView &picture, Thumbnail &thumbnail) {
  const int64_t area = int64_t{picture.width} * picture.height; // units that each target pixel covers
  Sums sums(static_cast<size_t>(thumbnail.width));
  for (int64_t y = 0; y < thumbnail.height; ++y) {
    std::fill(sums.begin(), sums.end(), Sums::value_type{});
    forEachCovered(spanOf(y, picture.height, thumbnail.height), thumbnail.height,
                   [&](int64_t line, int64_t covered) { addLine(picture, line, covered, sums); });
    for (const auto &sum : sums) {
      uint32_t word = 0;
      for (size_t channel = 0; channel < 3; ++channel) {
        word |= static_cast<uint32_t>((sum[channel] + area / 2) / area) << 8 * channel;
      }
      thumbnail.words.push_back(word);
    }
  }
}

// At least one pixel.
int32_t reducedSide(int64_t length, int64_t longest, int32_t side) {
  return static_cast<int32_t>(std::max<int64_t>(1, (length * side + longest / 2) / longest));
}

} // namespace

bool makeThumbnail(const PixelView &picture, bool tallPixels, int32_t side, Thumbnail &thumbnail) {
  thumbnail = {};
  if (picture.width <= 0 || picture.height <= 0) return false;
  const int64_t width = picture.width;
  const int64_t height = int64_t{picture.height} * (tallPixels ? 2 : 1);
  const int64_t longest = std::max(width, height);
  if (longest <= side) {
    const int64_t factor = side / longest;
    thumbnail.width = static_cast<int32_t>(width * factor);
    thumbnail.height = static_cast<int32_t>(height * factor);
    return stretchPicture(picture, thumbnail.width, thumbnail.height, thumbnail.words);
  }
  thumbnail.width = reducedSide(width, longest, side);
  thumbnail.height = reducedSide(height, longest, side);
  if (!reserve(thumbnail.words, static_cast<size_t>(thumbnail.width) * static_cast<size_t>(thumbnail.height)))
    return false;
  reduce(picture, thumbnail);
  return true;
}
