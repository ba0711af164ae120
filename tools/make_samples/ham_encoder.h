#pragma once

// Screen 7 pictures of two pages whose palettes change from line to line.

#include <array>

#include "picture_types.h"

namespace samples {

struct HamChange {
  std::uint8_t index = 0;
  Levels levels;
};

// Every second line of the picture, with two changes behind each line.
struct HamPage {
  Palette start{};
  std::vector<std::array<HamChange, 2>> changes;
  std::vector<Bytes> lines; // 512 indexes each
};

// The pages of the even and of the odd lines.
using HamPages = std::array<HamPage, 2>;

// A picture of 512 pixels a line and an even number of lines; changes that would not help repeat entry 0.
HamPages encodeHam(const TruePicture &picture);

// `height` is that of the header: of one page when interlaced, else of the picture.
Bytes hamFile(const HamPages &pages, int height, bool interlaced, int storageMode);

} // namespace samples
