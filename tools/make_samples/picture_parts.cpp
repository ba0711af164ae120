#include "picture_parts.h"

#include "colour_reduction.h"

namespace samples {

namespace {

// The pixels of a part, in any row-major store.
template <typename Pixels>
Pixels partOf(const Pixels &pixels, int pictureWidth, int left, int top, int width, int height) {
  Pixels part;
  for (int y = top; y < top + height; ++y) {
    const auto first = pixels.begin() + y * pictureWidth + left;
    part.insert(part.end(), first, first + width);
  }
  return part;
}

} // namespace

TruePicture renderPart(Scene scene, int width, int height, const FieldPart &part) {
  constexpr int kSamples = 2;
  TruePicture picture{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      Colour sum;
      for (int sample = 0; sample < kSamples; ++sample) {
        const double down = (sample + 0.5) / kSamples;
        const double across = fractionOf(down * 2 + 0.125);
        sum = sum + scene(part.left + (x + across) * part.across, part.top + (y + down) * part.down);
      }
      picture.pixels.push_back(rgbOfColour(sum * (1.0 / kSamples)));
    }
  }
  return picture;
}

TruePicture cropped(const TruePicture &picture, int left, int top, int width, int height) {
  return {width, height, partOf(picture.pixels, picture.width, left, top, width, height)};
}

IndexedPicture cropped(const IndexedPicture &picture, int left, int top, int width, int height) {
  return {width, height, partOf(picture.indexes, picture.width, left, top, width, height)};
}

TruePicture greyed(const TruePicture &picture) { return tinted(picture, {0, 0, 0}, {255, 255, 255}); }

} // namespace samples
