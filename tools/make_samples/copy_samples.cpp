#include "encoders.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

// Black, green and light green: the first and the last two of four entries of the default palette.
const Colours kGreens = {{0, 0, 0}, {0, 0, 0}, {36, 218, 36}, {109, 255, 109}};
const Colours kStampInks = {{255, 255, 255}, {0, 0, 0}, {36, 218, 36}, {109, 255, 109}};

Bytes nibbles(const TruePicture &picture) { return packBits(dithered(picture, coloursOf(kDefaultPalette)).pixels, 4); }

Bytes greens(const TruePicture &picture) {
  return packBits(dithered(tinted(picture, kGreens[0], kGreens[3]), kGreens).pixels, 2);
}

Bytes stamp(const TruePicture &picture) { return packBits(dithered(picture, kStampInks).pixels, 2); }

// The columns behind the last group of four have no bytes.
Bytes captioned(const TruePicture &picture) {
  Bytes bytes = encodeYae(picture, caption(picture.width, picture.height, "A PART OF A SCREEN"));
  bytes.resize(picture.pixels.size(), 0x5A);
  return bytes;
}

// A part of a screen of 256 or 512 pixels a line. The lines follow one another without a gap, within a byte too.
struct Row {
  const char *name;
  Bytes (*encode)(const TruePicture &picture);
  Scene scene;
  int screenWidth;
  int left, top, width, height;
};

constexpr Row kRows[] = {
    {"COAST.GL5", nibbles, coast, 256, 80, 40, 140, 110},
    {"WHEEL.GL5", nibbles, hueWheel, 256, 77, 67, 101, 77},
    {"PLASMA.GL6", greens, plasma, 512, 120, 10, 271, 190},
    {"COAST.GL6", greens, coast, 512, 180, 20, 320, 160},
    {"COAST.STP", stamp, coast, 512, 140, 20, 290, 170},
    {"WHEEL.STP", stamp, hueWheel, 512, 55, 0, 401, 212},
    {"COAST.GL7", nibbles, coast, 512, 220, 40, 260, 140},
    {"WHEEL.GL7", nibbles, hueWheel, 512, 155, 20, 201, 177},
    {"COAST.GL8", encodeGrb, coast, 256, 110, 60, 110, 150},
    {"PLASMA.GL8", encodeGrb, plasma, 256, 60, 40, 133, 99},
    {"COAST.GLA", captioned, coast, 256, 16, 0, 220, 212},
    {"WHEEL.GLA", captioned, hueWheel, 256, 48, 30, 160, 144},
    {"PLASMA.GLB", captioned, plasma, 256, 0, 0, 256, 180},
    {"COAST.GLB", captioned, coast, 256, 0, 8, 240, 200},
    {"odd/COAST.GLC", encodeYjk, coast, 256, 20, 20, 160, 120}, // always refused
    {"odd/size_8x8.GL5", nibbles, coast, 256, 160, 104, 8, 8},
    {"odd/width_203.GLB", captioned, coast, 256, 40, 8, 203, 200},
};

} // namespace

void addCopySamples(Samples &samples) {
  for (const Row &row : kRows) {
    const TruePicture &screen = rendered(row.scene, row.screenWidth, 212);
    const TruePicture part = cropped(screen, row.left, row.top, row.width, row.height);
    samples.push_back({row.name, copyFile(row.width, row.height, row.encode(part))});
  }
}

} // namespace samples
