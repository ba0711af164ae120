#include "sample_builders.h"

#include "expected_colours.h"

namespace samples {

namespace {

// A file whose end address is that of its last byte.
Bytes wholeFile(const Bytes &memory) { return bloadFile(memory, static_cast<std::uint16_t>(memory.size() - 1)); }

void placePalette(Bytes &memory, std::size_t address, const OptionalPalette &palette) {
  if (palette) placeBytes(memory, address, paletteBytes(*palette));
}

} // namespace

const TruePicture &sceneIn(Gallery &gallery, Scene scene, int width) {
  const auto [entry, added] = gallery.try_emplace({scene, width});
  if (added) entry->second = renderScene(scene, width);
  return entry->second;
}

ColourWords coloursOf(const OptionalPalette &palette) { return palette ? coloursOfPalette(*palette) : kDefaultColours; }

SamplePicture patternSample(const std::string &name, const IndexedPicture &picture, const OptionalPalette &palette) {
  Bytes memory = encodePatternScreen(picture);
  placePalette(memory, kPaletteOfPatterns, palette);
  return {name, wholeFile(memory), 256, 192, shownIndexes(picture.indexes, coloursOf(palette)), ""};
}

SamplePicture nibbleSample(const std::string &name, const IndexedPicture &picture, const OptionalPalette &palette) {
  Bytes memory = packNibbles(picture.indexes);
  placePalette(memory, picture.width == 256 ? kPaletteOf256Wide : kPaletteOf512Wide, palette);
  return {name, wholeFile(memory), picture.width, 212, shownIndexes(picture.indexes, coloursOf(palette)), ""};
}

SamplePicture packedSample(const std::string &name, const IndexedPicture &picture) {
  return {name, packedBloadFile(packNibbles(picture.indexes)),  picture.width,
          212,  shownIndexes(picture.indexes, kDefaultColours), ""};
}

SamplePicture crumbSample(const std::string &name, const IndexedPicture &picture, const OptionalPalette &palette) {
  Bytes memory = packCrumbs(picture.indexes);
  placePalette(memory, kPaletteOf256Wide, palette);
  return {name, wholeFile(memory), 512, 212, shownIndexes(picture.indexes, coloursOf(palette)), ""};
}

SamplePicture grbSample(const std::string &name, const Bytes &bytes) {
  return {name, wholeFile(bytes), 256, 212, shownGrb332(bytes), ""};
}

SamplePicture yjkSample(const std::string &name, const TruePicture &picture) {
  const Bytes bytes = encodeYjk(picture);
  return {name, wholeFile(bytes), 256, 212, shownYjk(bytes), ""};
}

SamplePicture yaeSample(const std::string &name, const TruePicture &picture, const IndexedPicture &overlay,
                        const OptionalPalette &palette) {
  const Bytes bytes = encodeYae(picture, overlay);
  Bytes memory = bytes;
  placePalette(memory, kPaletteOf512Wide, palette);
  return {name, wholeFile(memory), 256, 212, shownYae(bytes, coloursOf(palette)), ""};
}

} // namespace samples
