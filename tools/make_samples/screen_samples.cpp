#include "encoders.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

// Video addresses of the palettes.
constexpr std::size_t kOfPatterns = 0x1B80;
constexpr std::size_t kOfNarrow = 0x7680; // Screens 5 and 6
constexpr std::size_t kOfWide = 0xFA80;   // Screens 7, 10 and 11

constexpr Palette kUnfilled = {}; // a palette area that was never filled: shown in the default palette

Colours shownColours(const Palette *palette, std::size_t count = 16) {
  return coloursOf(palette == nullptr || palette == &kUnfilled ? kDefaultPalette : *palette, count);
}

// The end address is that of the last byte. Without a palette the memory ends with the pixels.
Bytes screenFile(Bytes memory, std::size_t paletteAddress, const Palette *palette) {
  if (palette != nullptr) place(memory, paletteAddress, paletteBytes(*palette));
  return bloadFile(memory, static_cast<std::uint16_t>(memory.size() - 1));
}

Bytes pixelsOf(const IndexedPicture &picture) { return packBits(picture.pixels, 4); }

Bytes patterns(Scene scene, const Palette *palette) {
  const TruePicture lines = cropped(rendered(scene, 256, 212), 0, 14, 256, 192);
  return screenFile(patternScreen(ditheredInPairs(lines, shownColours(palette))), kOfPatterns, palette);
}

Bytes screen5(Scene scene, const Palette *palette) {
  return screenFile(pixelsOf(dithered(rendered(scene, 256, 212), shownColours(palette))), kOfNarrow, palette);
}

// In shades of amber, or of the greens among the first four default colours.
Bytes screen6(Scene scene, const Palette *palette) {
  const Colours colours = shownColours(palette, 4);
  const TruePicture shades = tinted(rendered(scene, 512, 212), colours[0], colours[3]);
  return screenFile(packBits(dithered(shades, colours).pixels, 2), kOfNarrow, palette);
}

Bytes screen7(Scene scene, const Palette *palette) {
  return screenFile(pixelsOf(dithered(rendered(scene, 512, 212), shownColours(palette))), kOfWide, palette);
}

Bytes screen8(Scene scene, const Palette *) { return bloadFile(encodeGrb(rendered(scene, 256, 212)), 0xD3FF); }

Bytes screen12(Scene scene, const Palette *) { return bloadFile(encodeYjk(rendered(scene, 256, 212)), 0xD3FF); }

struct Row {
  const char *name;
  Bytes (*encode)(Scene scene, const Palette *palette);
  Scene scene;
  const Palette *palette = nullptr;
};

constexpr Row kRows[] = {
    {"COAST.SC2", patterns, coast},
    {"WHEEL.SR2", patterns, hueWheel},
    {"PLASMA.SR2", patterns, plasma},
    {"COAST.SC4", patterns, coast, &kCoastPalette},
    {"WHEEL.SR4", patterns, hueWheel},
    {"PLASMA.SR4", patterns, plasma, &kPlasmaPalette},
    {"COAST.SC5", screen5, coast, &kCoastPalette},
    {"PLASMA.SC5", screen5, plasma, &kUnfilled},
    {"WHEEL.SR5", screen5, hueWheel, &kWheelPalette},
    {"COAST.GE5", screen5, coast, &kCoastPalette},
    {"PLASMA.GE5", screen5, plasma, &kPlasmaPalette},
    {"COAST.SC6", screen6, coast, &kAmberPalette},
    {"PLASMA.SC6", screen6, plasma},
    {"WHEEL.SR6", screen6, hueWheel},
    {"COAST.SR6", screen6, coast, &kAmberPalette},
    {"COAST.SC7", screen7, coast, &kCoastPalette},
    {"WHEEL.SC7", screen7, hueWheel},
    {"PLASMA.SR7", screen7, plasma, &kPlasmaPalette},
    {"COAST.SC8", screen8, coast},
    {"WHEEL.SR8", screen8, hueWheel},
    {"PLASMA.SR8", screen8, plasma},
    {"COAST.GE8", screen8, coast},
    {"WHEEL.GE8", screen8, hueWheel},
    {"PLASMA.PIC", screen8, plasma},
    {"COAST.PIC", screen8, coast},
    {"COAST.SCC", screen12, coast},
    {"WHEEL.SCC", screen12, hueWheel},
    {"PLASMA.SRC", screen12, plasma},
    {"COAST.SRC", screen12, coast},
    {"WHEEL.S12", screen12, hueWheel},
    {"PLASMA.S12", screen12, plasma},
};

struct CaptionRow {
  const char *name;
  Scene scene;
  const char *text;
  const Palette *palette = nullptr;
};

// Screens 10 and 11.
constexpr CaptionRow kCaptionRows[] = {
    {"COAST.SCA", coast, "GREETINGS FROM THE COAST"},
    {"PLASMA.SCA", plasma, "SIXTEEN AND THE REST", &kPlasmaPalette},
    {"WHEEL.SRA", hueWheel, "ALL ROUND THE WHEEL", &kWheelPalette},
    {"COAST.SRA", coast, "SUNSET AT 19:45", &kCoastPalette},
    {"PLASMA.S10", plasma, "NO TWO LINES ALIKE"},
    {"WHEEL.S10", hueWheel, "EVERY HUE, ONCE"},
    {"WHEEL.SCB", hueWheel, "RED, GREEN, BLUE", &kWheelPalette},
    {"COAST.SCB", coast, "A NIGHT AT THE BAY"},
    {"PLASMA.SRB", plasma, "PLASMA", &kPlasmaPalette},
    {"COAST.SRB", coast, "GAME OVER - PLAY AGAIN!"},
    {"WHEEL.S11", hueWheel, "WHEEL OF FORTUNE"},
    {"COAST.S11", coast, "HELLO FROM SUMMER", &kCoastPalette},
};

// All 256 bytes, in boxes of 14 x 12 pixels.
Bytes byteChart() {
  IndexedPicture chart(256, 212);
  for (int y = 0; y < 212; ++y) {
    for (int x = 0; x < 256; ++x) {
      const int column = (x - 8) / 15, row = (y - 10) / 12;
      const bool isBox = x >= 8 && column < 16 && y >= 10 && row < 16 && (x - 8) % 15 < 14 && (y - 10) % 12 < 11;
      chart.at(x, y) = isBox ? byteOf(row * 16 + column) : 0;
    }
  }
  return bloadFile(chart.pixels, 0xD3FF);
}

} // namespace

void addScreenSamples(Samples &samples) {
  for (const Row &row : kRows) samples.push_back({row.name, row.encode(row.scene, row.palette)});
  for (const CaptionRow &row : kCaptionRows) {
    const Bytes pixels = encodeYae(rendered(row.scene, 256, 212), caption(256, 212, row.text));
    samples.push_back({row.name, screenFile(pixels, kOfWide, row.palette)});
  }
  samples.push_back({"LISTING.SC2", screenFile(patternScreen(listing()), 0, nullptr)});
  samples.push_back({"LISTING.SC4", screenFile(patternScreen(listing()), kOfPatterns, &kDefaultPalette)});
  samples.push_back({"CHART.SC5", screenFile(pixelsOf(paletteChart()), 0, nullptr)});
  samples.push_back({"CHART.SR5", packedBloadFile(pixelsOf(paletteChart()))});
  samples.push_back({"DESK.SC7", screenFile(pixelsOf(desk(512, 212)), 0, nullptr)});
  samples.push_back({"DESK.SR7", packedBloadFile(pixelsOf(desk(512, 212)))});
  samples.push_back({"COLOURS.SC8", byteChart()});
}

} // namespace samples
