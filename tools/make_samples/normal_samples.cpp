#include "colour_reduction.h"
#include "expected_colours.h"
#include "pixel_art.h"
#include "sample_builders.h"
#include "sample_groups.h"

namespace samples {

namespace {

// Scene pictures in a palette of their own or in the default one.
enum class Reduction { kDiffused, kOrdered };

struct NibbleScene {
  const char *name;
  Scene scene;
  int width;
  bool ownPalette;
  Reduction reduction;
};

constexpr std::array<NibbleScene, 8> kNibbleScenes = {{
    {"HARBOUR.SC5", sunsetBay, 256, true, Reduction::kOrdered},
    {"SKYLINE.SC5", cityNight, 256, true, Reduction::kDiffused},
    {"SUNFLOWR.SR5", sunflower, 256, true, Reduction::kDiffused},
    {"BALLOONS.SR5", balloons, 256, true, Reduction::kOrdered},
    {"CASTLE.SC7", castleHill, 512, true, Reduction::kDiffused},
    {"SPHERES.SC7", spheres, 512, true, Reduction::kOrdered},
    {"PLANET.SR7", ringedPlanet, 512, true, Reduction::kDiffused},
    {"REEF.SR7", reef, 512, false, Reduction::kDiffused},
}};

struct PatternScene {
  const char *name;
  Scene scene;
  bool ownPalette; // Screen 4 only
};

constexpr std::array<PatternScene, 5> kPatternScenes = {{
    {"SKYLINE.SR2", cityNight, false},
    {"BALLOONS.SR2", balloons, false},
    {"SPHERES.SR4", spheres, false},
    {"CASTLE.SC4", castleHill, true},
    {"AURORA.SR4", northernLights, true},
}};

struct CrumbScene {
  const char *name;
  Scene scene;
  Rgb dark, light; // the ends of the tint
};

constexpr std::array<CrumbScene, 2> kCrumbScenes = {{
    {"BEACON.SC6", lighthouse, {0, 0, 36}, {255, 230, 160}},
    {"MOON.SR6", fullMoon, {0, 0, 0}, {255, 255, 255}},
}};

struct PlainScene {
  const char *name;
  Scene scene;
};

constexpr std::array<PlainScene, 8> kGrbScenes = {{
    {"SUNSET.SC8", sunsetBay},
    {"FRACTAL.SR8", fractal},
    {"SKYLINE.SR8", cityNight},
    {"REEF.GE8", reef},
    {"PLASMA.GE8", plasma},
    {"CASTLE.PIC", castleHill},
    {"SPHERES.PIC", spheres},
    {"SUNFLOWR.PIC", sunflower},
}};

constexpr std::array<PlainScene, 7> kYjkScenes = {{
    {"HUES.SCC", hueWheel},
    {"BALLOONS.SCC", balloons},
    {"SPHERES.SRC", spheres},
    {"SUNFLOWR.SRC", sunflower},
    {"PLASMA.S12", plasma},
    {"PLANET.S12", ringedPlanet},
    {"FRACTAL.S12", fractal},
}};

// Shades of one hue, evenly spaced; all four levels differ.
Palette tintPalette(Rgb dark, Rgb light) {
  Palette palette{};
  for (int i = 0; i < 4; ++i) {
    const auto level = [i](int from, int to) {
      return static_cast<std::uint8_t>(((from * (3 - i) + to * i) * 7 / 3 + 127) / 255);
    };
    palette[static_cast<std::size_t>(i)] = {level(dark.red, light.red), level(dark.green, light.green),
                                            level(dark.blue, light.blue)};
  }
  return palette;
}

void addPatternScreens(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  pictures.push_back(patternSample("TITLE.SC2", titleScreen(sceneIn(gallery, ringedPlanet, 256)), {}));
  pictures.push_back(patternSample("LISTING.SC2", programListing(), {}));
  pictures.push_back(patternSample("MAZE.SC4", mazeScreen(), {}));
  for (const PatternScene &row : kPatternScenes) {
    const TruePicture scene = middleLines(sceneIn(gallery, row.scene, 256), 192);
    const OptionalPalette palette = row.ownPalette ? OptionalPalette(choosePalette(scene, 16)) : std::nullopt;
    pictures.push_back(patternSample(row.name, orderToPatternLines(scene, coloursOf(palette)), palette));
  }
}

void addNibbleScreens(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  for (const NibbleScene &row : kNibbleScenes) {
    const TruePicture &scene = sceneIn(gallery, row.scene, row.width);
    const OptionalPalette palette = row.ownPalette ? OptionalPalette(choosePalette(scene, 16)) : std::nullopt;
    const auto reduce = row.reduction == Reduction::kOrdered ? orderToPalette : diffuseToPalette;
    pictures.push_back(nibbleSample(row.name, reduce(scene, coloursOf(palette), 16), palette));
  }
  pictures.push_back(nibbleSample("CHART.SC5", paletteChart(), {}));
  // Saved with a palette area that was never filled.
  const IndexedPicture fishes = diffuseToPalette(sceneIn(gallery, reef, 256), kDefaultColours, 16);
  SamplePicture unfilled = nibbleSample("REEF.SC5", fishes, Palette{});
  unfilled.expected = shownIndexes(fishes.indexes, kDefaultColours);
  pictures.push_back(unfilled);
  pictures.push_back(packedSample("ROCKET.SR5", rocketPad(256)));
  pictures.push_back(packedSample("CHART.SR5", paletteChart()));
  pictures.push_back(packedSample("LAUNCH.SR7", rocketPad(512)));
  pictures.push_back(packedSample("DESK.SR7", windowDesk()));
}

void addCrumbScreens(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  pictures.push_back(crumbSample("GLOBE.SC6", wireGlobe(), {}));
  for (const CrumbScene &row : kCrumbScenes) {
    const Palette palette = tintPalette(row.dark, row.light);
    const TruePicture scene = tinted(sceneIn(gallery, row.scene, 512), row.dark, row.light);
    pictures.push_back(crumbSample(row.name, diffuseToPalette(scene, coloursOfPalette(palette), 4), palette));
  }
  const TruePicture &bay = sceneIn(gallery, sunsetBay, 512);
  const Palette palette = choosePalette(bay, 4);
  pictures.push_back(crumbSample("SUNSET.SR6", diffuseToPalette(bay, coloursOfPalette(palette), 4), palette));
}

void addOverlaidScreens(std::vector<SamplePicture> &pictures, Gallery &gallery) {
  const auto add = [&](const char *name, Scene scene, const IndexedPicture &overlay, const OptionalPalette &palette) {
    pictures.push_back(yaeSample(name, sceneIn(gallery, scene, 256), overlay, palette));
  };
  add("POSTCARD.SCA", sunsetBay, postcardOverlay("GREETINGS FROM", "PALM BAY"), kOverlayPalette);
  add("QUEST.SCA", castleHill,
      dialogueOverlay({"SIR ALDER", "The king has lost", "his crown again.", "Will you help?"}), kOverlayPalette);
  add("RAIDERS.SRA", ringedPlanet, shooterOverlay("0017350"), kOverlayPalette);
  add("FORECAST.SRA", balloons, weatherOverlay("GREEN VALLEY", {"FRI", "SAT", "SUN"}), {});
  add("SURVEY.S10", fullMoon, surveyOverlay("LANDING SITE 2 FOUND", 112, 96), kOverlayPalette);
  add("SWATCHES.S10", plasma, swatchOverlay("SIXTEEN AND THE REST"), {});
  add("GREETING.SCB", spheres, postcardOverlay("A HOLIDAY IN", "RAYLAND"), {});
  add("NORTH.SCB", northernLights, surveyOverlay("STATION 68N  -22 C", 128, 90), kOverlayPalette);
  add("DIVER.SRB", reef, dialogueOverlay({"CAPTAIN", "Mind the striped", "one, he bites!"}), kOverlayPalette);
  add("STORM.SRB", lighthouse, weatherOverlay("CAPE ROCK", {"MON", "TUE", "WED"}), {});
  add("WHEEL.S11", hueWheel, swatchOverlay("ALL ROUND THE WHEEL"), kOverlayPalette);
  add("SUMMER.S11", sunflower, postcardOverlay("HELLO FROM", "SUMMER"), kOverlayPalette);
}

} // namespace

std::vector<SamplePicture> normalSamplePictures() {
  std::vector<SamplePicture> pictures;
  Gallery gallery;
  addPatternScreens(pictures, gallery);
  addNibbleScreens(pictures, gallery);
  addCrumbScreens(pictures, gallery);
  pictures.push_back(grbSample("COLOURS.SC8", byteColourChart()));
  for (const PlainScene &row : kGrbScenes) {
    pictures.push_back(grbSample(row.name, encodeGrb332(sceneIn(gallery, row.scene, 256))));
  }
  addOverlaidScreens(pictures, gallery);
  for (const PlainScene &row : kYjkScenes) {
    pictures.push_back(yjkSample(row.name, sceneIn(gallery, row.scene, 256)));
  }
  addCopySamples(pictures, gallery);
  addPaintSamples(pictures, gallery);
  addHamSamples(pictures);
  addG9bSamples(pictures, gallery);
  addSymbosSamples(pictures);
  addVscreenSamples(pictures, gallery);
  addVideoSamples(pictures);
  return pictures;
}

std::vector<SamplePicture> allSamplePictures() {
  std::vector<SamplePicture> pictures = normalSamplePictures();
  std::vector<SamplePicture> odd = oddSamplePictures();
  for (SamplePicture &picture : odd) pictures.push_back(std::move(picture));
  return pictures;
}

} // namespace samples
