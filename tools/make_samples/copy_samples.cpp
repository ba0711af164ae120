#include <algorithm>

#include "colour_reduction.h"
#include "copy_encoders.h"
#include "expected_colours.h"
#include "picture_parts.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "sample_variants.h"

namespace samples {

namespace {

constexpr Rgb kBlack = {0, 0, 0};
constexpr Rgb kLightGreen = {109, 255, 109}; // entry 3 of the default palette
constexpr std::size_t kWidthField = 0, kHeightField = 2, kSizeBytes = 4;

struct Rectangle {
  int left, top, width, height;
};

TruePicture partOfScene(Gallery &gallery, Scene scene, int screenWidth, const Rectangle &part) {
  return cropped(sceneIn(gallery, scene, screenWidth), part.left, part.top, part.width, part.height);
}

// Screens 5 and 7.
SamplePicture copiedNibbles(const std::string &name, const IndexedPicture &picture) {
  return {name,
          copyFile(picture.width, picture.height, packRunningNibbles(picture.indexes)),
          picture.width,
          picture.height,
          shownIndexes(picture.indexes, kDefaultColours),
          ""};
}

// Screen 6.
SamplePicture copiedCrumbs(const std::string &name, const IndexedPicture &picture, const ColourWords &colours) {
  return {name,
          copyFile(picture.width, picture.height, packRunningCrumbs(picture.indexes)),
          picture.width,
          picture.height,
          shownIndexes(picture.indexes, colours),
          ""};
}

SamplePicture copiedGrb(const std::string &name, const TruePicture &picture) {
  const Bytes bytes = encodeGrb332(picture);
  return {name, copyFile(picture.width, picture.height, bytes), picture.width, picture.height, shownGrb332(bytes), ""};
}

SamplePicture copiedYae(const std::string &name, const TruePicture &picture, const IndexedPicture &overlay) {
  const Bytes bytes = encodeYae(picture, overlay);
  return {name,
          copyFile(picture.width, picture.height, bytes),
          picture.width,
          picture.height,
          shownYae(bytes, kDefaultColours),
          ""};
}

// Paper and ink of a printed page in place of the first two colours.
ColourWords stampColours() {
  ColourWords colours = kDefaultColours;
  colours[0] = 0xFFFFFF;
  colours[1] = 0x000000;
  return colours;
}

IndexedPicture airMailStamp() {
  constexpr int kWidth = 189, kHeight = 61;
  IndexedPicture stamp = blankPicture(kWidth, kHeight, 0);
  for (int y = 42; y < 54; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      if ((x + y) % 16 < 8) setPixel(stamp, x, y, 2);
    }
  }
  for (int margin = 0; margin < 8; ++margin) {
    const std::uint8_t ink = margin == 0 ? 1 : margin >= 3 && margin < 6 ? 2 : 0;
    drawFrame(stamp, margin, margin / 2, kWidth - 2 * margin, kHeight - margin / 2 * 2, ink);
  }
  drawShadedText(stamp, 22, 8, "BY AIR", {3, 3, 3, 2, 2, 2, 2, 2}, 1, 3, 2);
  drawText(stamp, 58, 30, "PAR AVION", plainInk(1));
  return stamp;
}

// Groups of four pixels on every line; the one to three pixels behind the last group have no bytes.
SamplePicture withUngroupedColumns(const std::string &name, const TruePicture &picture, const IndexedPicture &overlay,
                                   int width) {
  SamplePicture sample = copiedYae(name, picture, overlay);
  SamplePicture widened = {name, sample.bytes, width, picture.height, {}, ""};
  widened.bytes[kWidthField] = static_cast<std::uint8_t>(width);
  widened.bytes.resize(kSizeBytes + static_cast<std::size_t>(width * picture.height), 0x5A);
  for (int y = 0; y < picture.height; ++y) {
    const auto line = sample.expected.begin() + y * picture.width;
    widened.expected.insert(widened.expected.end(), line, line + picture.width);
    widened.expected.insert(widened.expected.end(), static_cast<std::size_t>(width - picture.width), 0u);
  }
  return widened;
}

void addCopyBounds(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const IndexedPicture whole5 = diffuseToPalette(sceneIn(gallery, reef, 256), kDefaultColours, 16);
  const IndexedPicture whole7 = windowDesk();
  const IndexedPicture whole6 = wireGlobe();
  const TruePicture &whole8 = sceneIn(gallery, hueWheel, 256);
  const IndexedPicture overlay = swatchOverlay("WHOLE SCREEN");
  pictures.push_back(copiedNibbles("odd/size_256x212.GL5", whole5));
  pictures.push_back(copiedCrumbs("odd/size_512x212.GL6", whole6, kDefaultColours));
  pictures.push_back(copiedCrumbs("odd/size_512x212.STP", whole6, stampColours()));
  pictures.push_back(copiedNibbles("odd/size_512x212.GL7", whole7));
  pictures.push_back(copiedGrb("odd/size_256x212.GL8", whole8));
  pictures.push_back(copiedYae("odd/size_256x212.GLB", whole8, overlay));
  pictures.push_back(copiedNibbles("odd/size_8x8.GL5", cropped(whole5, 60, 60, 8, 8)));
  pictures.push_back(copiedCrumbs("odd/size_8x8.GL6", cropped(whole6, 200, 60, 8, 8), kDefaultColours));
  pictures.push_back(copiedCrumbs("odd/size_8x8.STP", cropped(whole6, 200, 60, 8, 8), stampColours()));
  pictures.push_back(copiedNibbles("odd/size_8x8.GL7", cropped(whole7, 60, 60, 8, 8)));
  pictures.push_back(copiedGrb("odd/size_8x8.GL8", cropped(whole8, 90, 60, 8, 8)));
  pictures.push_back(copiedYae("odd/size_8x8.GLA", cropped(whole8, 92, 60, 8, 8), cropped(overlay, 92, 60, 8, 8)));
  pictures.push_back(copiedCrumbs("odd/size_9x31.GL6", cropped(whole6, 250, 90, 9, 31), kDefaultColours));
  pictures.push_back(copiedNibbles("odd/size_9x211.GL7", cropped(whole7, 100, 0, 9, 211)));
  struct BadSize {
    const char *name;
    int width, height;
  };
  constexpr std::array<BadSize, 13> kBadSizes = {{{"odd/width_7.GL5", 7, 100},
                                                  {"odd/width_257.GL5", 257, 100},
                                                  {"odd/width_8008.GL5", 0x8008, 100},
                                                  {"odd/height_7.GL5", 100, 7},
                                                  {"odd/height_213.GL5", 100, 213},
                                                  {"odd/height_8008.GL5", 100, 0x8008},
                                                  {"odd/width_513.GL6", 513, 100},
                                                  {"odd/width_7.STP", 7, 100},
                                                  {"odd/width_513.GL7", 513, 100},
                                                  {"odd/height_213.GL7", 100, 213},
                                                  {"odd/width_257.GL8", 257, 100},
                                                  {"odd/width_257.GLA", 257, 100},
                                                  {"odd/height_7.GLB", 100, 7}}};
  for (const BadSize &row : kBadSizes) {
    pictures.push_back(refused({row.name, copyFile(row.width, row.height, Bytes(54272, 0x12)), 0, 0, {}, ""}));
  }
}

} // namespace

void addCopySamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const auto nibbles = [&](const char *name, Scene scene, int screenWidth, const Rectangle &part) {
    const TruePicture picture = partOfScene(gallery, scene, screenWidth, part);
    pictures.push_back(copiedNibbles(name, diffuseToPalette(picture, kDefaultColours, 16)));
  };
  nibbles("SAIL.GL5", sunsetBay, 256, {60, 60, 140, 110});
  nibbles("FISH.GL5", reef, 256, {70, 50, 101, 77});
  pictures.push_back(copiedNibbles("ROCKET.GL5", cropped(rocketPad(256), 79, 10, 97, 190)));
  const auto greens = [&](const char *name, Scene scene, const Rectangle &part) {
    const TruePicture picture = tinted(partOfScene(gallery, scene, 512, part), kBlack, kLightGreen);
    pictures.push_back(copiedCrumbs(name, diffuseToPalette(picture, kDefaultColours, 4), kDefaultColours));
  };
  greens("MOON.GL6", fullMoon, {120, 10, 271, 190});
  greens("PETALS.GL6", sunflower, {100, 20, 320, 160});
  pictures.push_back(copiedCrumbs("DIAL.GL6", cropped(wireGlobe(), 0, 0, 203, 133), kDefaultColours));
  const ColourWords stamp = stampColours();
  const TruePicture castle = partOfScene(gallery, castleHill, 512, {140, 20, 290, 170});
  pictures.push_back(copiedCrumbs("CASTLE.STP", diffuseToPalette(castle, stamp, 4), stamp));
  const TruePicture planet = greyed(partOfScene(gallery, ringedPlanet, 512, {60, 16, 401, 170}));
  pictures.push_back(copiedCrumbs("PLANET.STP", diffuseToPalette(planet, stamp, 2), stamp));
  pictures.push_back(copiedCrumbs("AIRMAIL.STP", airMailStamp(), stamp));
  nibbles("KEEP.GL7", castleHill, 512, {180, 30, 260, 140});
  nibbles("BALLOON.GL7", balloons, 512, {97, 10, 201, 177});
  const auto grb = [&](const char *name, Scene scene, const Rectangle &part) {
    pictures.push_back(copiedGrb(name, partOfScene(gallery, scene, 256, part)));
  };
  grb("BALLOON.GL8", balloons, {44, 10, 110, 150});
  grb("SPIRAL.GL8", fractal, {60, 40, 133, 99});
  const auto yae = [&](const char *name, Scene scene, const IndexedPicture &overlay, const Rectangle &part) {
    pictures.push_back(copiedYae(name, partOfScene(gallery, scene, 256, part),
                                 cropped(overlay, part.left, part.top, part.width, part.height)));
  };
  yae("RAIDERS.GLA", ringedPlanet, shooterOverlay("0099850"), {16, 0, 220, 212});
  yae("LANDING.GLA", fullMoon, surveyOverlay("LANDING SITE 3 FOUND", 112, 96), {40, 24, 160, 144});
  yae("ISLAND.GLB", sunsetBay, postcardOverlay("A NIGHT ON", "PALM BAY"), {0, 0, 256, 180});
  yae("VALLEY.GLB", balloons, weatherOverlay("BLUE VALLEY", {"SAT", "SUN", "MON"}), {8, 0, 240, 200});
}

void addOddCopySamples(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  addCopyBounds(pictures, gallery);
  const TruePicture wheel = cropped(sceneIn(gallery, hueWheel, 256), 28, 0, 200, 200);
  const IndexedPicture overlay = cropped(swatchOverlay("COLUMNS"), 28, 0, 200, 200);
  pictures.push_back(withUngroupedColumns("odd/width_201.GLA", wheel, overlay, 201));
  pictures.push_back(withUngroupedColumns("odd/width_203.GLB", wheel, overlay, 203));
  // No rectangle of Screen 12 is shown, however well made.
  for (const auto &[name, scene] : {std::pair{"odd/HUES.GLC", &hueWheel}, std::pair{"odd/PLASMA.GLC", &plasma}}) {
    const Bytes bytes = encodeYjk(partOfScene(gallery, scene, 256, {20, 20, 160, 120}));
    pictures.push_back(refused({name, copyFile(160, 120, bytes), 0, 0, {}, ""}));
  }
  const IndexedPicture fish = diffuseToPalette(partOfScene(gallery, reef, 256, {70, 50, 101, 77}), kDefaultColours, 16);
  SamplePicture cut = copiedNibbles("", fish);
  cut = cutTo(cut, "odd/short_body.GL5", kSizeBytes + 2000);
  std::fill(cut.expected.begin() + 4000, cut.expected.end(), 0u);
  pictures.push_back(cut);
  cut = cutTo(copiedGrb("", wheel), "odd/short_body.GL8", kSizeBytes + 15050);
  std::fill(cut.expected.begin() + 15050, cut.expected.end(), 0u);
  pictures.push_back(cut);
  cut = cutTo(copiedNibbles("", fish), "odd/header_only.GL7", kSizeBytes);
  std::fill(cut.expected.begin(), cut.expected.end(), 0u);
  pictures.push_back(cut);
  pictures.push_back(cutTo(copiedNibbles("", fish), "odd/longer_body.GL5", 9000));
  pictures.push_back(refused(cutTo(copiedNibbles("", fish), "odd/width_only.GL5", kHeightField)));
  pictures.push_back(refused(blankFile("odd/empty.GL8")));
  pictures.push_back(renamed(copiedNibbles("", fish), "odd/fish.gL5"));
}

} // namespace samples
