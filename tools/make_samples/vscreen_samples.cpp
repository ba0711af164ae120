#include <algorithm>

#include "colour_reduction.h"
#include "expected_colours.h"
#include "level_art.h"
#include "picture_parts.h"
#include "sample_groups.h"
#include "sample_variants.h"

namespace samples {

namespace {

constexpr const char *kColoursMissing = "*** Error: Could not find corresponding .TCS file!";

SamplePicture tileSetSample(const std::string &name, const IndexedPicture &picture, const Palette &palette) {
  return {name, tileSetFile(picture, palette), 256, 64, shownIndexes(picture.indexes, coloursOfPalette(palette)), ""};
}

SamplePicture borderSample(const std::string &name, const IndexedPicture &picture) {
  return {name, borderFile(picture), 256, 40, shownIndexes(picture.indexes, kDefaultColours), ""};
}

// Sixteen sprites side by side; the colour numbers of both layers are joined bit by bit.
IndexedPicture shownSprites(const std::vector<LayeredSprite> &sprites) {
  IndexedPicture picture = blankPicture(256, 48, 0);
  for (int n = 0; n < static_cast<int>(sprites.size()); ++n) {
    const LayeredSprite &sprite = sprites[static_cast<std::size_t>(n)];
    for (int y = 0; y < 16; ++y) {
      const auto line = static_cast<std::size_t>(y);
      for (int x = 0; x < 16; ++x) {
        const int lower = (sprite.bits[line] >> (15 - x) & 1) != 0 ? sprite.colours[line] : 0;
        const int upper = (sprite.overBits[line] >> (15 - x) & 1) != 0 ? sprite.overColours[line] : 0;
        setPixel(picture, n % 16 * 16 + x, n / 16 * 16 + y, static_cast<std::uint8_t>(lower | upper));
      }
    }
  }
  return picture;
}

// Named in the letters of `colourExtension`, the colour file stands beside the sprites.
SamplePicture spriteSample(const std::string &name, const std::vector<LayeredSprite> &sprites,
                           const std::string &colourExtension, std::uint8_t highHalf) {
  const std::string colourName = name.substr(0, name.size() - 3) + colourExtension;
  return {name,
          spriteSetFile(sprites),
          256,
          48,
          shownIndexes(shownSprites(sprites).indexes, kDefaultColours),
          "",
          {{colourName, spriteColourFile(sprites, highHalf)}}};
}

SamplePicture withoutColours(const std::string &name, const std::vector<LayeredSprite> &sprites) {
  return {name, spriteSetFile(sprites), 0, 0, {}, kColoursMissing};
}

void addOddBorders(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const IndexedPicture strip =
      cropped(diffuseToPalette(sceneIn(gallery, reef, 256), kDefaultColours, 16), 0, 80, 256, 40);
  const SamplePicture border = borderSample("", strip);
  struct BadHeader {
    const char *name;
    std::size_t position;
    std::uint8_t value;
  };
  constexpr std::array<BadHeader, 5> kBadHeaders = {{{"odd/first_byte_fd.SCR", 0, 0xFD},
                                                     {"odd/start_0001.SCR", 1, 0x01},
                                                     {"odd/end_1401.SCR", 3, 0x01},
                                                     {"odd/end_1500.SCR", 4, 0x15},
                                                     {"odd/execution_0001.SCR", 5, 0x01}}};
  for (const BadHeader &row : kBadHeaders) {
    pictures.push_back(refused(withByte(border, row.name, row.position, row.value)));
  }
  SamplePicture before = withByte(border, "odd/end_13ff.SCR", 3, 0xFF);
  before.bytes[4] = 0x13;
  pictures.push_back(refused(before));
  pictures.push_back(refused(blankFile("odd/empty.SCR")));
  // The last byte is no part of the picture.
  pictures.push_back(cutTo(border, "odd/without_last_byte.SCR", 7 + 5120));
  SamplePicture cut = cutTo(border, "odd/short_body.SCR", 7 + 25 * 128);
  std::fill(cut.expected.begin() + 25 * 256, cut.expected.end(), 0u);
  pictures.push_back(cut);
}

void addOddTileSets(std::vector<SamplePicture> &pictures) {
  const SamplePicture tiles = tileSetSample("", levelTiles(), kLevelPalette);
  SamplePicture unfilled = tileSetSample("odd/tiles_palette_zero.SC4", levelTiles(), Palette{});
  unfilled.expected = shownIndexes(levelTiles().indexes, kDefaultColours);
  pictures.push_back(unfilled);
  SamplePicture bad = withByte(tiles, "odd/tiles_palette_red_80.SC4", 30, 0x80);
  bad.expected = unfilled.expected;
  pictures.push_back(bad);
  pictures.push_back(withByte(bad, "odd/tiles_first_byte_fd.SC4", 0, 0xFD));
  pictures.push_back(refused(withByte(tiles, "odd/tiles_first_byte_fe.SC4", 0, 0xFE)));
  pictures.push_back(refused(cutTo(tiles, "odd/tiles_size_4127.SC4", 4127)));
  pictures.push_back(refused(cutTo(tiles, "odd/tiles_size_4129.SC4", 4129)));
  pictures.push_back(renamed(tiles, "odd/tiles_screen_2.SC2"));
}

void addOddSprites(std::vector<SamplePicture> &pictures) {
  const std::vector<LayeredSprite> figures = levelFigures();
  pictures.push_back(refused(cutTo(withoutColours("", figures), "odd/size_2943.TGS", 2943)));
  pictures.push_back(refused(cutTo(withoutColours("", figures), "odd/size_2945.TGS", 2945)));
  pictures.push_back(refused(blankFile("odd/empty.TGS")));
  pictures.push_back(withoutColours("odd/no_colours.TGS", figures));
  for (const auto &[name, size] : {std::pair{"odd/colours_1471.", 1471u}, std::pair{"odd/colours_1473.", 1473u},
                                   std::pair{"odd/colours_empty.", 0u}}) {
    SamplePicture bad = withoutColours(std::string(name) + "TGS", figures);
    Bytes colours = spriteColourFile(figures, 0);
    colours.resize(size);
    bad.companions = {{std::string(name) + "tcs", colours}};
    pictures.push_back(bad);
  }
  // Only the low halves of the colours count.
  pictures.push_back(spriteSample("odd/colours_high_half.TGS", figures, "tcs", 0x0F));
  // Both layers everywhere, every pair of colours in turn.
  std::vector<LayeredSprite> full(kSpriteCount);
  for (std::size_t n = 0; n < kSpriteCount; ++n) {
    full[n].bits.fill(0xFFF0);
    full[n].overBits.fill(0x0FFF);
    for (std::size_t line = 0; line < 16; ++line) {
      full[n].colours[line] = static_cast<std::uint8_t>(n % 16);
      full[n].overColours[line] = static_cast<std::uint8_t>(line);
    }
  }
  pictures.push_back(spriteSample("odd/all_pairs.tgs", full, "TCS", 0));
}

} // namespace

void addVscreenSamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  pictures.push_back(tileSetSample("TILES.SC4", levelTiles(), kLevelPalette));
  const TruePicture planet = cropped(sceneIn(gallery, ringedPlanet, 256), 0, 60, 256, 64);
  const Palette palette = choosePalette(planet, 16);
  pictures.push_back(tileSetSample("RINGS.SC4", orderToPatternLines(planet, coloursOfPalette(palette)), palette));
  pictures.push_back(borderSample("STATUS.SCR", statusBorder()));
  const TruePicture skyline = cropped(sceneIn(gallery, cityNight, 256), 0, 116, 256, 40);
  pictures.push_back(borderSample("SKYLINE.SCR", diffuseToPalette(skyline, kDefaultColours, 16)));
  pictures.push_back(spriteSample("FIGURES.TGS", levelFigures(), "TCS", 0));
  pictures.push_back(spriteSample("LETTERS.TGS", letterSprites(), "tcs", 0));
}

void addOddVscreenSamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  addOddBorders(pictures, gallery);
  addOddTileSets(pictures);
  addOddSprites(pictures);
}

} // namespace samples
