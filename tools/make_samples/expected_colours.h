#pragma once

// What the screen modes show, in the plainest form: one pixel after the other, by the definition.

#include "picture_types.h"

namespace samples {

// Colours of pictures without a palette of their own.
extern const ColourWords kDefaultColours;

// Levels 0..7 as round(level * 255 / 7).
ColourWords coloursOfPalette(const Palette &palette);

std::vector<std::uint32_t> shownIndexes(const Bytes &indexes, const ColourWords &colours);
std::vector<std::uint32_t> shownIndexes(const Bytes &indexes, const std::vector<std::uint32_t> &colours);
std::vector<std::uint32_t> shownGrb332(const Bytes &bytes);
std::vector<std::uint32_t> shownYjk(const Bytes &bytes);
std::vector<std::uint32_t> shownYae(const Bytes &bytes, const ColourWords &colours);

// The same in videos: blue is rounded to a whole level, and the levels of bytes GGGRRRBB are 32 and 64 apart.
std::vector<std::uint32_t> shownVideoYjk(const Bytes &bytes);
std::vector<std::uint32_t> shownVideoRgb(const Bytes &bytes);

} // namespace samples
