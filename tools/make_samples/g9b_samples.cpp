#include <algorithm>

#include "colour_reduction.h"
#include "expected_colours.h"
#include "g9b_encoder.h"
#include "picture_parts.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "sample_variants.h"

namespace samples {

namespace {

constexpr std::size_t kHeaderSize = 16;
constexpr std::size_t kBlockSize = 16384;

enum class Storage { kStored, kPacked };

// What a file holds and shows, apart from its name.
struct Contents {
  G9bHeader header;
  G9bPalette palette;
  Bytes pixels;
  std::vector<std::uint32_t> expected;
};

SamplePicture g9bSample(const std::string &name, const Contents &contents, Storage storage,
                        std::size_t blockSize = kBlockSize) {
  const G9bHeader &header = contents.header;
  const Bytes file = storage == Storage::kStored
                         ? g9bFile(header, contents.palette, contents.pixels)
                         : packedG9bFile(header, contents.palette, packG9b(contents.pixels, blockSize));
  return {name, file, header.width, header.height, contents.expected, ""};
}

G9bPalette paletteOf(const std::vector<Rgb> &colours, std::size_t count) {
  G9bPalette palette;
  for (const Rgb colour : colours) {
    const auto level = [](int value) { return static_cast<std::uint8_t>((value * 31 + 127) / 255); };
    palette.push_back({level(colour.red), level(colour.green), level(colour.blue)});
  }
  palette.resize(count);
  return palette;
}

// Levels 0..31.
std::vector<std::uint32_t> wordsOf(const G9bPalette &palette) {
  std::vector<std::uint32_t> words;
  for (const Levels levels : palette) {
    words.push_back(levels.red * 255u / 31 * 65536 + levels.green * 255u / 31 * 256 + levels.blue * 255u / 31);
  }
  return words;
}

// Packed in 2, 4 or 8 bits a pixel. Columns that fill no whole byte have none and stay black.
Contents indexedContents(const IndexedPicture &picture, int bitsPerPixel, const G9bPalette &palette) {
  Contents contents{{bitsPerPixel, 0, picture.width, picture.height}, palette, {}, {}};
  const int whole = picture.width / (8 / bitsPerPixel) * (8 / bitsPerPixel);
  const Bytes indexes = cropped(picture, 0, 0, whole, picture.height).indexes;
  contents.pixels = bitsPerPixel == 2 ? packCrumbs(indexes) : bitsPerPixel == 4 ? packNibbles(indexes) : indexes;
  contents.expected = shownIndexes(picture.indexes, wordsOf(palette));
  for (std::size_t i = 0; i < contents.expected.size(); ++i) {
    if (static_cast<int>(i) % picture.width >= whole) contents.expected[i] = 0;
  }
  return contents;
}

// In the best colours of the scene.
Contents reducedContents(const TruePicture &scene, int bitsPerPixel, std::size_t colourCount) {
  const G9bPalette palette = paletteOf(chooseColours(scene, static_cast<int>(colourCount)), colourCount);
  std::vector<Rgb> colours;
  for (const std::uint32_t word : wordsOf(palette)) {
    colours.push_back({static_cast<int>(word >> 16), static_cast<int>(word >> 8 & 255), static_cast<int>(word & 255)});
  }
  return indexedContents(diffuseToColours(scene, colours), bitsPerPixel, palette);
}

Contents grbContents(const TruePicture &scene) {
  const Bytes bytes = encodeGrb332(scene);
  return {{8, 0x40, scene.width, scene.height}, {}, bytes, shownGrb332(bytes)};
}

Contents yjkContents(const TruePicture &scene) {
  const Bytes bytes = encodeYjk(scene);
  return {{8, 0x80, scene.width, scene.height}, {}, bytes, shownYjk(bytes)};
}

// As YJK with green and blue exchanged.
Contents yuvContents(TruePicture scene) {
  for (Rgb &pixel : scene.pixels) std::swap(pixel.green, pixel.blue);
  Contents contents = yjkContents(scene);
  contents.header.colourType = 0xC0;
  for (std::uint32_t &word : contents.expected) word = (word & 0xFF0000) + (word & 0xFF) * 256 + (word >> 8 & 0xFF);
  return contents;
}

Contents highColourContents(const TruePicture &scene) {
  Contents contents{{16, 0, scene.width, scene.height}, {}, packHighColour(scene), {}};
  for (std::size_t i = 0; i < contents.pixels.size(); i += 2) {
    const auto pixel = static_cast<std::uint32_t>(contents.pixels[i] + contents.pixels[i + 1] * 256);
    const std::uint32_t green = pixel / 1024 % 32, red = pixel / 32 % 32, blue = pixel % 32;
    contents.expected.push_back(red * 8 * 65536 + green * 8 * 256 + blue * 8);
  }
  return contents;
}

// The sixteen colours of the pictures in the default palette.
G9bPalette deskPalette() {
  std::vector<Rgb> colours;
  for (const std::uint32_t word : kDefaultColours) {
    colours.push_back({static_cast<int>(word >> 16), static_cast<int>(word >> 8 & 255), static_cast<int>(word & 255)});
  }
  return paletteOf(colours, 16);
}

// A drawing of lines in two inks.
IndexedPicture inTwoInks(IndexedPicture picture) {
  for (std::uint8_t &index : picture.indexes) index = index >= 2;
  return picture;
}

const G9bPalette kAmbers = {{2, 1, 0}, {12, 6, 1}, {23, 14, 2}, {31, 24, 9}};
const G9bPalette kNightAndMint = {{1, 3, 6}, {16, 31, 22}};

void addRefusedHeaders(std::vector<SamplePicture> &pictures, const SamplePicture &whole) {
  struct BadHeader {
    const char *name;
    std::size_t position;
    std::uint8_t value;
  };
  constexpr std::array<BadHeader, 8> kBadHeaders = {{{"odd/letter_g.G9B", 0, 'g'},
                                                     {"odd/digit_8.G9B", 1, '8'},
                                                     {"odd/letter_b.G9B", 2, 'b'},
                                                     {"odd/header_size_10.G9B", 3, 10},
                                                     {"odd/header_size_12.G9B", 3, 12},
                                                     {"odd/header_size_010b.G9B", 4, 1},
                                                     {"odd/compression_2.G9B", 12, 2},
                                                     {"odd/compression_ff.G9B", 12, 0xFF}}};
  for (const BadHeader &row : kBadHeaders)
    pictures.push_back(refused(withByte(whole, row.name, row.position, row.value)));
  pictures.push_back(refused(blankFile("odd/empty.G9B")));
}

SamplePicture inBlack(SamplePicture picture) {
  std::fill(picture.expected.begin(), picture.expected.end(), 0u);
  return picture;
}

void addOddPacked(std::vector<SamplePicture> &pictures, const TruePicture &wheel) {
  const Contents grb = grbContents(wheel);
  pictures.push_back(g9bSample("odd/many_short_blocks.G9B", grb, Storage::kPacked, 300));
  pictures.push_back(g9bSample("odd/data_size_0.G9B", grb, Storage::kPacked));
  std::fill(pictures.back().bytes.begin() + 13, pictures.back().bytes.begin() + 16, std::uint8_t{0});
  // Block lengths are not looked at.
  pictures.push_back(withByte(g9bSample("", grb, Storage::kPacked), "odd/block_length_wrong.G9B", kHeaderSize + 1, 0));
  pictures.push_back(inBlack(withByte(g9bSample("", grb, Storage::kPacked), "odd/no_blocks.G9B", kHeaderSize, 0)));
  // The second of two blocks is missing; the zeros in its place are literals of zero.
  Contents upper = grb;
  upper.pixels.resize(grb.pixels.size() / 2);
  SamplePicture cut = g9bSample("", upper, Storage::kPacked, upper.pixels.size());
  cut = withByte(cut, "odd/second_block_missing.G9B", kHeaderSize, 2);
  std::fill(cut.expected.begin() + static_cast<std::ptrdiff_t>(upper.pixels.size()), cut.expected.end(), 0u);
  pictures.push_back(cut);
  // An end marker before anything else; the picture is in the second block.
  Bytes twoBlocks = packG9b(grb.pixels, grb.pixels.size());
  twoBlocks[0] = 2;
  twoBlocks.insert(twoBlocks.begin() + 1, {5, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0x80});
  pictures.push_back({"odd/first_block_blank.G9B", packedG9bFile(grb.header, {}, twoBlocks), grb.header.width,
                      grb.header.height, grb.expected, ""});
  // Large plain areas: copies of up to 65,536 bytes.
  IndexedPicture flag = blankPicture(640, 400, 0);
  fillBox(flag, 0, 130, 640, 140, 1);
  pictures.push_back(g9bSample("odd/long_copies.G9B", indexedContents(flag, 8, kAmbers), Storage::kPacked, 256000));
}

} // namespace

void addG9bSamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const IndexedPicture globe = wireGlobe();
  pictures.push_back(g9bSample("GLOBE.G9B", indexedContents(globe, 2, kAmbers), Storage::kStored));
  pictures.push_back(g9bSample("MINT.G9B", indexedContents(inTwoInks(globe), 2, kNightAndMint), Storage::kPacked));
  pictures.push_back(g9bSample("DESK.G9B", indexedContents(windowDesk(), 4, deskPalette()), Storage::kPacked));
  const TruePicture castle = renderPart(castleHill, 384, 240, {0, 24, 2.0 / 3, 2.0 / 3});
  pictures.push_back(g9bSample("CASTLE.G9B", reducedContents(castle, 4, 16), Storage::kStored));
  const TruePicture &fishes = sceneIn(gallery, reef, 256);
  pictures.push_back(g9bSample("REEF.G9B", reducedContents(fishes, 8, 64), Storage::kPacked));
  pictures.push_back(
      g9bSample("LIGHTS.G9B", reducedContents(sceneIn(gallery, northernLights, 256), 8, 64), Storage::kStored));
  pictures.push_back(g9bSample("SUNSET.G9B", grbContents(sceneIn(gallery, sunsetBay, 256)), Storage::kPacked));
  pictures.push_back(g9bSample("PLANET.G9B", grbContents(sceneIn(gallery, ringedPlanet, 512)), Storage::kStored));
  pictures.push_back(g9bSample("HUES.G9B", yjkContents(sceneIn(gallery, hueWheel, 256)), Storage::kStored));
  pictures.push_back(g9bSample("FLOWER.G9B", yjkContents(sceneIn(gallery, sunflower, 256)), Storage::kPacked));
  pictures.push_back(g9bSample("BALLOONS.G9B", yuvContents(sceneIn(gallery, balloons, 256)), Storage::kPacked));
  pictures.push_back(g9bSample("SPHERES.G9B", yuvContents(sceneIn(gallery, spheres, 256)), Storage::kStored));
  const TruePicture bay = renderPart(sunsetBay, 640, 400, {0, 30, 0.4, 0.4});
  pictures.push_back(g9bSample("BAY.G9B", highColourContents(bay), Storage::kStored));
  const TruePicture moon = renderPart(fullMoon, 512, 424, {0, 0, 0.5, 0.5});
  pictures.push_back(g9bSample("MOON.G9B", highColourContents(moon), Storage::kPacked));
}

void addOddG9bSamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const TruePicture wheel = cropped(sceneIn(gallery, hueWheel, 256), 48, 26, 160, 160);
  const TruePicture castle = cropped(sceneIn(gallery, castleHill, 256), 48, 26, 159, 160);
  const Contents grb = grbContents(wheel);
  const SamplePicture stored = g9bSample("", grb, Storage::kStored);
  addRefusedHeaders(pictures, stored);
  addOddPacked(pictures, wheel);
  // Depths and colour types that nothing is drawn for.
  pictures.push_back(inBlack(withByte(stored, "odd/depth_5.G9B", 5, 5)));
  pictures.push_back(inBlack(withByte(stored, "odd/depth_0.G9B", 5, 0)));
  pictures.push_back(inBlack(withByte(stored, "odd/colour_type_20.G9B", 6, 0x20)));
  // A palette of an unknown size is none, so that the pixels begin behind the header.
  pictures.push_back(withByte(stored, "odd/colour_count_3.G9B", 7, 3));
  Contents unused = grb;
  unused.palette.resize(64, {31, 0, 31});
  pictures.push_back(g9bSample("odd/palette_unused.G9B", unused, Storage::kStored));
  // Columns at the right that fill no byte or no group of four.
  pictures.push_back(g9bSample("odd/width_159.G9B", reducedContents(castle, 4, 16), Storage::kStored));
  const IndexedPicture globe = cropped(wireGlobe(), 0, 0, 203, 150);
  pictures.push_back(g9bSample("odd/width_203.G9B", indexedContents(globe, 2, kAmbers), Storage::kPacked));
  Contents wide = yjkContents(wheel);
  wide.header.width += 2;
  std::vector<std::uint32_t> expected;
  for (std::size_t i = 0; i < wide.expected.size(); ++i) {
    expected.push_back(wide.expected[i]);
    if (i % 160 == 159) expected.insert(expected.end(), 2, 0u);
  }
  wide.expected = expected;
  pictures.push_back(g9bSample("odd/width_162.G9B", wide, Storage::kStored));
  // The top bit of a pixel has no meaning.
  Contents high = highColourContents(wheel);
  for (std::size_t i = 1; i < high.pixels.size(); i += 2) {
    if (i / 2 % 3 == 0) high.pixels[i] = static_cast<std::uint8_t>(high.pixels[i] | 0x80);
  }
  pictures.push_back(g9bSample("odd/top_bits.G9B", high, Storage::kStored));
  // Every level of the palette, 0 to 31 in red, then in green and blue.
  G9bPalette everyLevel;
  for (std::uint8_t i = 0; i < 64; ++i) {
    const auto level = static_cast<std::uint8_t>(i % 32);
    everyLevel.push_back(i < 32 ? Levels{level, 0, 0} : Levels{0, level, level});
  }
  IndexedPicture bars = blankPicture(128, 64, 0);
  for (std::size_t i = 0; i < bars.indexes.size(); ++i) {
    bars.indexes[i] = static_cast<std::uint8_t>(i / 4 % 32 + i / 4096 * 32);
  }
  pictures.push_back(g9bSample("odd/all_levels.G9B", indexedContents(bars, 8, everyLevel), Storage::kStored));
  SamplePicture cut = cutTo(stored, "odd/short_body.G9B", kHeaderSize + 16030);
  std::fill(cut.expected.begin() + 16030, cut.expected.end(), 0u);
  pictures.push_back(cut);
  pictures.push_back(inBlack(cutTo(stored, "odd/header_only.G9B", kHeaderSize)));
}

} // namespace samples
