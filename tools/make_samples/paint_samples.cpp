#include <algorithm>

#include "colour_reduction.h"
#include "expected_colours.h"
#include "paint_encoders.h"
#include "picture_parts.h"
#include "pixel_art.h"
#include "printed_pages.h"
#include "sample_groups.h"
#include "sample_variants.h"

namespace samples {

namespace {

constexpr std::size_t kLastPageByte = 45055;

SamplePicture datSample(const std::string &name, const IndexedPicture &picture, const Palette &palette) {
  SamplePicture sample = {name, datFile(picture, palette), picture.width, picture.height, {}, ""};
  sample.expected = shownIndexes(picture.indexes, coloursOfPalette(palette));
  // The right column of an odd width is in no byte.
  for (std::size_t i = 0; i < sample.expected.size() && picture.width % 2 != 0; ++i) {
    const auto width = static_cast<std::size_t>(picture.width);
    if (i % width == width - 1) sample.expected[i] = 0;
  }
  return sample;
}

SamplePicture cmpSample(const std::string &name, const IndexedPicture &picture, int directLines) {
  return {name,
          cmpFile(picture, directLines),
          picture.width,
          picture.height,
          shownIndexes(picture.indexes, kDefaultColours),
          ""};
}

SamplePicture pageSample(const std::string &name, const IndexedPicture &page) {
  constexpr ColourWords kWhiteAndBlack = {0xFFFFFF, 0x000000};
  return {name,        pctFile(packPageRuns(pageBytes(page))),     page.width,
          page.height, shownIndexes(page.indexes, kWhiteAndBlack), ""};
}

void addOddPages(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const IndexedPicture poster = posterPage(gallery);
  const SamplePicture whole = pageSample("", poster);
  for (const std::size_t position : {8u, 16u, 18u, 23u}) {
    pictures.push_back(refused(withByte(whole, "odd/letter_" + std::to_string(position) + ".PCT", position, 'x')));
  }
  pictures.push_back(withByte(whole, "odd/header_byte_0_ff.PCT", 0, 0xFF));
  pictures.push_back(refused(blankFile("odd/empty.PCT")));
  // Everything black, the last byte in a literal of its own that comes too late.
  SamplePicture black = {"odd/last_byte_unwritten.PCT", {}, 512, 704, std::vector<std::uint32_t>(512 * 704), ""};
  Bytes packed = packPageRuns(Bytes(kLastPageByte, 0xFF));
  packed.insert(packed.end(), {0, 0xFF});
  black.bytes = pctFile(packed);
  std::fill(black.expected.end() - 8, black.expected.end(), 0xFFFFFFu);
  pictures.push_back(black);
  // The last run is longer than what is left of the page.
  const IndexedPicture upper = cropped(poster, 0, 0, 512, 600);
  packed = packPageRuns(pageBytes(upper));
  for (int run = 0; run < 60; ++run) packed.insert(packed.end(), {0xFE, 0xFF});
  SamplePicture longer = {"odd/run_past_end.PCT", pctFile(packed), 512, 704, whole.expected, ""};
  std::fill(longer.expected.begin() + 600 * 512, longer.expected.end(), 0u);
  pictures.push_back(longer);
}

void addOddDrawings(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const TruePicture &scene = sceneIn(gallery, castleHill, 256);
  const Palette palette = choosePalette(scene, 16);
  const IndexedPicture castle = diffuseToPalette(scene, coloursOfPalette(palette), 16);
  const SamplePicture bload = nibbleSample("", castle, palette);
  struct BadHeader {
    const char *name;
    std::size_t position;
    std::uint8_t value;
  };
  constexpr std::array<BadHeader, 7> kBadHeaders = {{{"odd/first_byte_fd.GE5", 0, 0xFD},
                                                     {"odd/start_0001.GE5", 1, 0x01},
                                                     {"odd/start_0100.GE5", 2, 0x01},
                                                     {"odd/end_76a0.GE5", 3, 0xA0},
                                                     {"odd/end_7f9f.GE5", 4, 0x7F},
                                                     {"odd/execution_0001.GE5", 5, 0x01},
                                                     {"odd/execution_0100.GE5", 6, 0x01}}};
  for (const BadHeader &row : kBadHeaders) {
    pictures.push_back(refused(withByte(bload, row.name, row.position, row.value)));
  }
  // A page saved without the palette.
  pictures.push_back(refused(nibbleSample("odd/end_69ff.GE5", castle, {})));
  SamplePicture unfilled = nibbleSample("odd/palette_zero.GE5", paletteChart(), Palette{});
  unfilled.expected = shownIndexes(paletteChart().indexes, kDefaultColours);
  pictures.push_back(unfilled);
  // The palette is lost with the lower part of the picture.
  constexpr std::ptrdiff_t kKeptPixels = 100 * 256;
  SamplePicture cut = cutTo(nibbleSample("", paletteChart(), kOverlayPalette), "odd/short_body.GE5", 7 + 100 * 128);
  cut.expected = unfilled.expected;
  std::fill(cut.expected.begin() + kKeptPixels, cut.expected.end(), 0u);
  pictures.push_back(cut);
  cut = cutTo(datSample("", paletteChart(), kOverlayPalette), "odd/short_body.DAT", 4 + 100 * 128);
  cut.expected = unfilled.expected;
  std::fill(cut.expected.begin() + kKeptPixels, cut.expected.end(), 0u);
  pictures.push_back(cut);
  pictures.push_back(withByte(datSample("", castle, palette), "odd/palette_red_80.DAT", 4 + 212 * 128 + 30, 0x80));
  pictures.back().expected = shownIndexes(castle.indexes, kDefaultColours);

  // Half a byte is left over: the palette stands at the even one of the two positions beside it.
  pictures.push_back(datSample("odd/width_127.DAT", cropped(castle, 60, 40, 127, 99), palette));
  pictures.push_back(datSample("odd/width_125.DAT", cropped(castle, 60, 40, 125, 99), palette));
  pictures.push_back(datSample("odd/width_255.DAT", cropped(castle, 0, 0, 255, 212), palette));
  pictures.push_back(datSample("odd/size_8x8.DAT", cropped(castle, 120, 80, 8, 8), palette));
  for (const auto &[name, width, height] :
       {std::tuple{"odd/width_7.DAT", 7, 100}, std::tuple{"odd/width_257.DAT", 257, 100},
        std::tuple{"odd/height_7.DAT", 100, 7}, std::tuple{"odd/height_213.DAT", 100, 213}}) {
    pictures.push_back(refused({name, datFile(blankPicture(width, height, 5), palette), 0, 0, {}, ""}));
  }

  const SamplePicture chart = cmpSample("", paletteChart(), 1);
  pictures.push_back(refused(withByte(chart, "odd/width_129.CMP", 0, 129)));
  pictures.push_back(refused(withByte(chart, "odd/height_213.CMP", 1, 213)));
  pictures.push_back(cmpSample("odd/all_lines_direct.CMP", paletteChart(), 212));
  pictures.push_back(cmpSample("odd/more_direct_than_lines.CMP", cropped(paletteChart(), 0, 0, 256, 90), 255));
  pictures.push_back(cmpSample("odd/size_2x1.CMP", cropped(castle, 120, 80, 2, 1), 1));
  pictures.push_back(cmpSample("odd/width_2.CMP", cropped(castle, 120, 20, 2, 150), 3));
  // Nothing but the first line: the differences beyond the end are zero.
  SamplePicture lines = cmpSample("", cropped(castle, 0, 120, 256, 1), 1);
  lines.name = "odd/first_line_repeated.CMP";
  lines.bytes[1] = 64;
  lines.height = 64;
  const std::vector<std::uint32_t> line = lines.expected;
  for (int y = 1; y < 64; ++y) lines.expected.insert(lines.expected.end(), line.begin(), line.end());
  pictures.push_back(lines);
  const IndexedPicture zeros = blankPicture(256, 64, 0);
  pictures.push_back(cutTo(cmpSample("", zeros, 1), "odd/header_only.CMP", 3));
}

} // namespace

void addPaintSamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const auto reduced = [&](Scene scene, const Palette &palette) {
    return diffuseToPalette(sceneIn(gallery, scene, 256), coloursOfPalette(palette), 16);
  };
  const Palette ofCastle = choosePalette(sceneIn(gallery, castleHill, 256), 16);
  const Palette ofPlanet = choosePalette(sceneIn(gallery, ringedPlanet, 256), 16);
  const Palette ofLights = choosePalette(sceneIn(gallery, northernLights, 256), 16);
  const Palette ofSpheres = choosePalette(sceneIn(gallery, spheres, 256), 16);
  pictures.push_back(nibbleSample("CITADEL.GE5", reduced(castleHill, ofCastle), ofCastle));
  pictures.push_back(nibbleSample("SATURN.GE5", reduced(ringedPlanet, ofPlanet), ofPlanet));
  pictures.push_back(datSample("NORTH.DAT", reduced(northernLights, ofLights), ofLights));
  pictures.push_back(datSample("MARBLES.DAT", cropped(reduced(spheres, ofSpheres), 30, 40, 190, 150), ofSpheres));
  pictures.push_back(cmpSample("ROCKET.CMP", rocketPad(256), 1));
  pictures.push_back(cmpSample("CHART.CMP", paletteChart(), 0));
  const TruePicture reefScene = cropped(sceneIn(gallery, reef, 256), 8, 20, 230, 180);
  pictures.push_back(cmpSample("CORAL.CMP", orderToPalette(reefScene, kDefaultColours, 16), 20));
  pictures.push_back(pageSample("NEWS.PCT", newsPage(gallery)));
  pictures.push_back(pageSample("POSTER.PCT", posterPage(gallery)));
}

void addOddPaintSamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  addOddDrawings(pictures, gallery);
  addOddPages(pictures, gallery);
}

} // namespace samples
