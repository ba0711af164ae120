#include "encoders.h"
#include "packers.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

constexpr std::size_t kBlockSize = 16384;

enum class Storage { kStored, kPacked };

// How pixels are kept. Palette entries are red, green and blue, 0 to 31 each.
struct Format {
  int bitsPerPixel, colourType;
  Bytes palette = {};
};

Bytes g9bFile(const Format &format, int width, int height, const Bytes &pixels, Storage storage) {
  const Bytes body = storage == Storage::kPacked ? packG9b(pixels, kBlockSize) : pixels;
  Bytes file = {'G', '9', 'B', 11, 0, byteOf(format.bitsPerPixel), byteOf(format.colourType)};
  file.push_back(byteOf(static_cast<int>(format.palette.size() / 3)));
  appendWords(file, {width, height});
  const int size = static_cast<int>(body.size());
  append(file, {byteOf(storage == Storage::kPacked), byteOf(size), byteOf(size >> 8), byteOf(size >> 16)});
  append(file, format.palette);
  append(file, body);
  return file;
}

// Colours that are multiples of 255 / 31, and the palette of them.
Bytes paletteOf(const Colours &colours) {
  Bytes palette;
  for (const Rgb colour : colours) {
    for (const int value : {colour.red, colour.green, colour.blue}) palette.push_back(byteOf((value * 31 + 127) / 255));
  }
  return palette;
}

// Four levels of each channel.
Colours cube() {
  Colours colours;
  for (int i = 0; i < 64; ++i) colours.push_back({i / 16 * 85, i / 4 % 4 * 85, i % 4 * 85});
  return colours;
}

Bytes highColour(const TruePicture &picture) {
  Bytes bytes;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const Rgb pixel = picture.at(x, y);
      const auto level = [&](int value) { return (value * 31 + threshold(x, y) * 4) / 255; };
      const int top = (x + y) % 3 == 0 ? 0x8000 : 0; // a bit without a meaning
      appendWords(bytes, {top + level(pixel.green) * 1024 + level(pixel.red) * 32 + level(pixel.blue)});
    }
  }
  return bytes;
}

// As YJK with green and blue exchanged.
Bytes encodeYuv(const TruePicture &picture) {
  TruePicture exchanged = picture;
  for (Rgb &pixel : exchanged.pixels) std::swap(pixel.green, pixel.blue);
  return encodeYjk(exchanged);
}

Bytes indexed64(const TruePicture &picture) { return dithered(picture, cube()).pixels; }

struct Row {
  const char *name;
  Format format;
  Bytes (*encode)(const TruePicture &picture);
  Scene scene;
  int width, height;
  Storage storage;
};

} // namespace

void addG9bSamples(Samples &samples) {
  const Format cubed = {8, 0, paletteOf(cube())};
  const Row rows[] = {
      {"COAST64.G9B", cubed, indexed64, coast, 256, 212, Storage::kPacked},
      {"WHEEL64.G9B", cubed, indexed64, hueWheel, 256, 212, Storage::kStored},
      {"COASTGRB.G9B", {8, 0x40}, encodeGrb, coast, 256, 212, Storage::kPacked},
      {"WHEELGRB.G9B", {8, 0x40}, encodeGrb, hueWheel, 512, 424, Storage::kStored},
      {"COASTYJK.G9B", {8, 0x80}, encodeYjk, coast, 256, 212, Storage::kStored},
      {"PLASMYJK.G9B", {8, 0x80}, encodeYjk, plasma, 256, 212, Storage::kPacked},
      {"WHEELYUV.G9B", {8, 0xC0}, encodeYuv, hueWheel, 256, 212, Storage::kPacked},
      {"COASTYUV.G9B", {8, 0xC0}, encodeYuv, coast, 256, 212, Storage::kStored},
      {"COAST32K.G9B", {16, 0}, highColour, coast, 640, 480, Storage::kStored},
      {"WHEEL32K.G9B", {16, 0}, highColour, hueWheel, 512, 424, Storage::kPacked},
  };
  for (const Row &row : rows) {
    const Bytes pixels = row.encode(rendered(row.scene, row.width, row.height));
    samples.push_back({row.name, g9bFile(row.format, row.width, row.height, pixels, row.storage)});
  }

  const Format fours = {4, 0, paletteOf(coloursOf(kDefaultPalette))};
  samples.push_back({"DESK.G9B", g9bFile(fours, 512, 212, packBits(desk(512, 212).pixels, 4), Storage::kPacked)});
  const Colours ambers = coloursOf(kAmberPalette, 4);
  const TruePicture shades = tinted(rendered(coast, 512, 424), ambers[0], ambers[3]);
  const IndexedPicture amber = dithered(shades, ambers);
  const Format twos = {2, 0, paletteOf(ambers)};
  samples.push_back({"AMBER.G9B", g9bFile(twos, 512, 424, packBits(amber.pixels, 2), Storage::kStored)});
  // The three columns that fill no whole byte are left out.
  const Bytes narrow = packBits(cropped(amber, 200, 100, 200, 150).pixels, 2);
  samples.push_back({"odd/width_203.G9B", g9bFile(twos, 203, 150, narrow, Storage::kPacked)});
}

} // namespace samples
