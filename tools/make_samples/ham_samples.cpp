#include "encoders.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

constexpr int kWidth = 512;
constexpr int kSector = kWidth / 16; // pixels that a colour is taken from

int levelsOf(Rgb colour) {
  const auto level = [](int value) { return (value * 7 + 127) / 255; };
  return level(colour.red) << 6 | level(colour.green) << 3 | level(colour.blue);
}

// The blocks of a page, which holds every second line.
struct Page {
  Bytes palettes; // of the first line, then two changes a line
  Bytes pixels;
};

// Each entry has the colour of a pixel of its sector. Each line changes two entries to colours of the next line.
Page encodePage(const TruePicture &picture, int firstLine) {
  const auto colourAt = [&](std::size_t sector, int y) {
    const int x = static_cast<int>(sector) * kSector + y * 11 % kSector;
    return levelsOf(picture.at(x, std::min(y, picture.height - 1)));
  };
  Palette palette;
  for (std::size_t sector = 0; sector < 16; ++sector) palette[sector] = colourAt(sector, firstLine);
  Page page = {paletteBytes(palette), {}};
  std::size_t sector = 0;
  for (int y = firstLine; y < picture.height; y += 2) {
    append(page.pixels, packBits(dithered(cropped(picture, 0, y, kWidth, 1), coloursOf(palette), y).pixels, 4));
    for (int change = 0; change < 2; ++change, sector = (sector + 7) % 16) {
      palette[sector] = colourAt(sector, y + 2);
      const Bytes colour = paletteBytes({palette[sector]});
      append(page.palettes, {byteOf(static_cast<int>(sector)), colour[0], colour[1]});
    }
  }
  return page;
}

// `height` is that of the header: interlace doubles it.
Bytes hamFile(const TruePicture &picture, int height, bool interlaced, int storageMode) {
  const Page even = encodePage(picture, 0), odd = encodePage(picture, 1);
  Bytes file = {'H', 'A', 'M', 1, 0x20, byteOf(storageMode), 0, byteOf(interlaced)};
  appendWords(file, {kWidth, height, 0, 0});
  std::array<int, 4> offsets{};
  Bytes body;
  const std::array<const Bytes *, 4> blocks = {&even.pixels, &odd.pixels, &even.palettes, &odd.palettes};
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    offsets[i] = 32 + static_cast<int>(body.size());
    append(body, *blocks[i]);
  }
  // The header names the palettes first. They begin beyond 65,536 bytes.
  for (const std::size_t i : {2, 3, 0, 1}) appendWords(file, {offsets[i] & 0xFFFF, offsets[i] >> 16});
  append(file, body);
  return file;
}

} // namespace

void addHamSamples(Samples &samples) {
  samples.push_back({"COAST.HAM", hamFile(rendered(coast, kWidth, 424), 212, true, 0)});
  samples.push_back({"PLASMA.HAM", hamFile(rendered(plasma, kWidth, 480), 240, true, 2)});
  samples.push_back({"WHEEL.HAM", hamFile(rendered(hueWheel, kWidth, 212), 212, false, 1)});
  // Each page has 105 lines, so that the last line of the picture is in neither.
  const TruePicture part = cropped(rendered(coast, kWidth, 212), 0, 0, kWidth, 210);
  samples.push_back({"odd/height_211.HAM", hamFile(part, 211, false, 0)});
}

} // namespace samples
