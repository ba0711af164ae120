#include <algorithm>

#include "expected_colours.h"
#include "ham_encoder.h"
#include "picture_parts.h"
#include "sample_groups.h"
#include "sample_variants.h"

namespace samples {

namespace {

// Each page from its top, with the changes of a line behind it. Lines below the picture are cut off.
std::vector<std::uint32_t> shownHam(const HamPages &pages, int height) {
  std::vector<std::uint32_t> shown(static_cast<std::size_t>(512 * height));
  for (std::size_t odd = 0; odd < 2; ++odd) {
    const HamPage &page = pages[odd];
    ColourWords colours = coloursOfPalette(page.start);
    for (std::size_t line = 0; line < page.lines.size(); ++line) {
      const std::size_t y = 2 * line + odd;
      for (std::size_t x = 0; x < 512 && y < static_cast<std::size_t>(height); ++x) {
        shown[y * 512 + x] = colours[page.lines[line][x]];
      }
      for (const HamChange &change : page.changes[line]) {
        if (change.index >= colours.size()) continue;
        Palette single{};
        single[0] = change.levels;
        colours[change.index] = coloursOfPalette(single)[0];
      }
    }
  }
  return shown;
}

SamplePicture hamSample(const std::string &name, const HamPages &pages, int height, bool interlaced, int storageMode) {
  const int shownHeight = interlaced ? 2 * height : height;
  return {name, hamFile(pages, height, interlaced, storageMode), 512, shownHeight, shownHam(pages, shownHeight), ""};
}

// The scene in square units on pixels of half a unit.
TruePicture interlacedScene(Scene scene, int height) { return renderPart(scene, 512, height, {0, 0, 0.5, 0.5}); }

// Dusk over a plain: all shades from the zenith to the afterglow, warm on the side of the sun.
Colour duskSky(double x, double y) {
  const double band = y + 8 * layeredNoise(x / 60, y / 20, 3, 201);
  const Colour warm = gradient({{0, {0.10, 0.0, 0.36}},
                                {45, {0.50, 0.05, 0.62}},
                                {85, {0.90, 0.12, 0.42}},
                                {120, {1.0, 0.40, 0.12}},
                                {150, {1.0, 0.72, 0.10}},
                                {172, {1.0, 1.0, 0.55}}},
                               band);
  const Colour cold = gradient({{0, {0.0, 0.0, 0.20}},
                                {45, {0.0, 0.16, 0.55}},
                                {85, {0.0, 0.45, 0.80}},
                                {120, {0.10, 0.75, 0.72}},
                                {150, {0.50, 0.92, 0.55}},
                                {172, {0.95, 1.0, 0.50}}},
                               band);
  const Colour sky = mix(warm, cold, smoothStep(60, 256, x));
  const double sun = lengthOf(x - 84, y - 160);
  const Colour glow = mix(sky, {1.0, 0.98, 0.85}, 1 - smoothStep(18, 20, sun));
  const double ridge = 176 - 14 * layeredNoise(x / 40, 1, 4, 202);
  if (y < ridge) return glow;
  const double furrow = 0.5 + 0.5 * sineOfTurns((x - 84) / (6 + (y - 160) * 0.5));
  return mix(mix({0.30, 0.10, 0.30}, {0.75, 0.35, 0.25}, furrow), {0.05, 0.08, 0.20}, smoothStep(ridge, 214, y));
}

Colour colourField(double x, double y) {
  const Colour hue = hueColour(x / 256 + 0.1 * sineOfTurns(y / 106));
  return y < 106 ? mix({0.05, 0.05, 0.05}, hue, y / 106) : mix(hue, {1, 1, 1}, (y - 106) / 106);
}

void addRefusedHeaders(std::vector<SamplePicture> &pictures, const SamplePicture &whole) {
  struct BadHeader {
    const char *name;
    std::size_t position;
    std::uint8_t value;
  };
  constexpr std::array<BadHeader, 13> kBadHeaders = {{{"odd/letter_h.HAM", 0, 'h'},
                                                      {"odd/letter_a.HAM", 1, 'a'},
                                                      {"odd/letter_m.HAM", 2, 'm'},
                                                      {"odd/version_0.HAM", 3, 0},
                                                      {"odd/version_2.HAM", 3, 2},
                                                      {"odd/marker_21.HAM", 4, 0x21},
                                                      {"odd/mode_3.HAM", 5, 3},
                                                      {"odd/mode_ff.HAM", 5, 0xFF},
                                                      {"odd/width_513.HAM", 8, 1},
                                                      {"odd/width_256.HAM", 9, 1},
                                                      {"odd/height_241.HAM", 10, 241},
                                                      {"odd/height_ff64.HAM", 11, 0xFF},
                                                      {"odd/height_8064.HAM", 11, 0x80}}};
  for (const BadHeader &row : kBadHeaders)
    pictures.push_back(refused(withByte(whole, row.name, row.position, row.value)));
  SamplePicture narrow = withByte(whole, "odd/width_511.HAM", 8, 0xFF);
  narrow.bytes[9] = 0x01;
  pictures.push_back(refused(narrow));
  pictures.push_back(refused(blankFile("odd/empty.HAM")));
}

} // namespace

void addHamSamples(std::vector<SamplePicture> &pictures) {
  pictures.push_back(hamSample("DUSK.HAM", encodeHam(interlacedScene(duskSky, 424)), 212, true, 0));
  pictures.push_back(hamSample("PRISM.HAM", encodeHam(renderScene(colourField, 512)), 212, false, 1));
  pictures.push_back(hamSample("CASTLE.HAM", encodeHam(interlacedScene(castleHill, 424)), 212, true, 2));
  pictures.push_back(hamSample("PLASMA.HAM", encodeHam(interlacedScene(plasma, 480)), 240, true, 0));
}

void addOddHamSamples(std::vector<SamplePicture> &pictures) {
  constexpr int kHeight = 100;
  const HamPages pages = encodeHam(renderPart(duskSky, 512, kHeight, {0, 80, 0.5, 1}));
  const SamplePicture whole = hamSample("", pages, kHeight, false, 0);
  addRefusedHeaders(pictures, whole);
  // Bytes that nothing reads.
  SamplePicture filled = withByte(whole, "odd/unread_bytes.HAM", 6, 0xFF);
  for (std::size_t position = 12; position < 16; ++position) filled.bytes[position] = 0xA5;
  pictures.push_back(filled);
  pictures.push_back(withByte(whole, "odd/interlace_2.HAM", 7, 2));
  // Changes of entries that no pixel can name, and of entry 0 alone.
  HamPages unseen = pages, onlyFirst = pages;
  for (std::size_t odd = 0; odd < 2; ++odd) {
    for (std::size_t line = 0; line < unseen[odd].changes.size(); ++line) {
      unseen[odd].changes[line][line % 2].index = static_cast<std::uint8_t>(16 + line * 5);
      onlyFirst[odd].changes[line].fill({0, {7, 0, 0}});
    }
  }
  pictures.push_back(hamSample("odd/changes_beyond_15.HAM", unseen, kHeight, false, 0));
  pictures.push_back(hamSample("odd/changes_of_entry_0.HAM", onlyFirst, kHeight, false, 0));
  // Both changes of a line name the same entry: the second one counts.
  HamPages twice = pages;
  for (HamPage &page : twice) {
    for (auto &pair : page.changes) pair[0].index = pair[1].index;
  }
  pictures.push_back(hamSample("odd/changes_of_one_entry.HAM", twice, kHeight, false, 0));
  // Of 211 lines each page has 105, so that the last line is in neither; of 213 each has 107.
  HamPages uneven = encodeHam(renderPart(duskSky, 512, 214, {0, 0, 0.5, 1}));
  pictures.push_back(hamSample("odd/height_213.HAM", uneven, 213, false, 0));
  for (HamPage &page : uneven) {
    page.changes.resize(105);
    page.lines.resize(105);
  }
  pictures.push_back(hamSample("odd/height_211.HAM", uneven, 211, false, 0));
  // Only the pixels of the odd page are cut; black is entry 0 of its palette, changed or not.
  HamPages half = pages;
  half[1].lines.assign(half[1].lines.size(), Bytes(512));
  SamplePicture cut = hamSample("odd/odd_page_missing.HAM", half, kHeight, false, 0);
  cut.bytes.resize(cut.bytes.size() - half[1].lines.size() * 256);
  pictures.push_back(cut);
  SamplePicture beyond = cut;
  beyond.name = "odd/offset_beyond_end.HAM";
  beyond.bytes[30] = 0x7F;
  pictures.push_back(beyond);
  // Only a header: black through and through.
  SamplePicture header = cutTo(whole, "odd/header_only.HAM", 32);
  std::fill(header.expected.begin(), header.expected.end(), 0u);
  pictures.push_back(header);
}

} // namespace samples
