#pragma once

// From a drawn picture to a whole sample: file bytes and expected colours.

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "encoders.h"
#include "sample_pictures.h"
#include "scenes.h"

namespace samples {

using OptionalPalette = std::optional<Palette>;

// Video addresses of the palettes.
constexpr std::size_t kPaletteOfPatterns = 0x1B80;
constexpr std::size_t kPaletteOf256Wide = 0x7680; // Screens 5 and 6
constexpr std::size_t kPaletteOf512Wide = 0xFA80; // Screens 7, 10 and 11

// Scenes already rendered, so that each is computed once for a width.
using Gallery = std::map<std::pair<Scene, int>, TruePicture>;
const TruePicture &sceneIn(Gallery &gallery, Scene scene, int width);

ColourWords coloursOf(const OptionalPalette &palette);

// 256 x 192, at most two colours a cell line. The palette is for ".SC4" and ".SR4" only.
SamplePicture patternSample(const std::string &name, const IndexedPicture &picture, const OptionalPalette &palette);

// Screen 5 for a width of 256, Screen 7 for 512. Without a palette the file ends with the pixels.
SamplePicture nibbleSample(const std::string &name, const IndexedPicture &picture, const OptionalPalette &palette);

// The same pictures packed, always in the default palette.
SamplePicture packedSample(const std::string &name, const IndexedPicture &picture);

// Screen 6.
SamplePicture crumbSample(const std::string &name, const IndexedPicture &picture, const OptionalPalette &palette);

// Screen 8 from bytes GGGRRRBB, Screen 12, Screens 10 and 11.
SamplePicture grbSample(const std::string &name, const Bytes &bytes);
SamplePicture yjkSample(const std::string &name, const TruePicture &picture);
SamplePicture yaeSample(const std::string &name, const TruePicture &picture, const IndexedPicture &overlay,
                        const OptionalPalette &palette);

} // namespace samples
