#include "encoders.h"
#include "packers.h"
#include "pixel_art.h"
#include "sample_groups.h"
#include "scenes.h"

namespace samples {

namespace {

IndexedPicture drawn(Scene scene, const Palette &palette) {
  return dithered(rendered(scene, 256, 212), coloursOf(palette));
}

// Lines hold whole bytes: the last column of an odd width is left out. The palette begins behind the product of half
// the width and the height, which is rounded to the nearest whole number, from a tie to the even one.
Bytes datFile(const IndexedPicture &picture, const Palette &palette) {
  const IndexedPicture whole = cropped(picture, 0, 0, picture.width / 2 * 2, picture.height);
  Bytes file = copyFile(picture.width, picture.height, packBits(whole.pixels, 4));
  const int twice = picture.width * picture.height + 2 * 5; // of the position, which counts from 1
  const int position = twice / 2 + (twice % 4 == 3 ? 1 : 0);
  place(file, static_cast<std::size_t>(position - 1), paletteBytes(palette));
  return file;
}

Bytes cmpFile(const IndexedPicture &picture, int directLines) {
  Bytes file = {byteOf(picture.width / 2), byteOf(picture.height), byteOf(directLines)};
  append(file, packCmp(packBits(picture.pixels, 4), static_cast<std::size_t>(picture.width / 2), directLines));
  return file;
}

// Of each eight pixels the left four are in the low half of the byte.
Bytes pageBytes(const IndexedPicture &paper) {
  Bytes bytes(paper.pixels.size() / 8);
  for (std::size_t i = 0; i < paper.pixels.size(); ++i) {
    const std::size_t bit = i % 8 < 4 ? 3 - i % 8 : 11 - i % 8;
    bytes[i / 8] = byteOf(bytes[i / 8] | paper.pixels[i] << bit);
  }
  return bytes;
}

Bytes pctFile(const Bytes &packed) {
  Bytes file(384);
  for (const auto &[position, letter] : {std::pair{8, "P"}, {16, "R"}, {18, "S"}, {23, "N"}}) {
    place(file, static_cast<std::size_t>(position), bytesOf(letter));
  }
  append(file, packed);
  return file;
}

} // namespace

void addPaintSamples(Samples &samples) {
  const IndexedPicture coastal = drawn(coast, kCoastPalette), wheel = drawn(hueWheel, kWheelPalette);
  samples.push_back({"COAST.DAT", datFile(coastal, kCoastPalette)});
  samples.push_back({"WHEEL.DAT", datFile(cropped(wheel, 33, 31, 190, 150), kWheelPalette)});
  samples.push_back({"odd/width_127.DAT", datFile(cropped(coastal, 100, 60, 127, 99), kCoastPalette)});
  samples.push_back({"odd/width_125.DAT", datFile(cropped(coastal, 100, 60, 125, 99), kCoastPalette)});

  samples.push_back({"CHART.CMP", cmpFile(paletteChart(), 1)});
  samples.push_back({"DESK.CMP", cmpFile(desk(256, 212), 0)});
  const IndexedPicture part = cropped(drawn(coast, kDefaultPalette), 8, 20, 230, 180);
  samples.push_back({"COAST.CMP", cmpFile(part, 20)});

  const Bytes news = pageBytes(page("MSX NEWS", rendered(coast, 464, 384)));
  samples.push_back({"NEWS.PCT", pctFile(packPage(news))});
  samples.push_back({"POSTER.PCT", pctFile(packPage(pageBytes(page("PLASMA", rendered(plasma, 512, 560)))))});
  // The last byte of the page is a run of its own, which comes too late.
  Bytes late = packPage(Bytes(news.begin(), news.end() - 1));
  append(late, {0, 0xFF});
  samples.push_back({"odd/last_byte_unwritten.PCT", pctFile(late)});
}

} // namespace samples
