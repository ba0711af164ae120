#include <algorithm>

#include "colour_reduction.h"
#include "drawing.h"
#include "expected_colours.h"
#include "picture_parts.h"
#include "sample_groups.h"
#include "sample_variants.h"
#include "symbos_encoder.h"

namespace samples {

namespace {

IndexedPicture inFourColours(const TruePicture &scene) { return diffuseToPalette(scene, kSymbosColours, 4); }
IndexedPicture inSixteenColours(const TruePicture &scene) { return diffuseToPalette(scene, kSymbosColours, 16); }

void append(Bytes &bytes, const Bytes &more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

// A file of one variant that begins with the bytes by which it is known.
Bytes openingBytes(SymbosVariant variant) {
  // A tile of 64 bytes a line and no size at all.
  return variant == SymbosVariant::kPairedBits ? symbosRecord(kSymbosMark, 0, variant) : Bytes{};
}

// Where the rows of tiles begin and end, and the same for the tiles of every row.
using Bounds = std::vector<int>;

// One or two rows; the picture is cut at the bounds.
SamplePicture tiledSample(const std::string &name, const IndexedPicture &picture, SymbosVariant variant,
                          const Bounds &columns, const Bounds &rows) {
  Bytes file = openingBytes(variant);
  for (std::size_t row = 0; row + 1 < rows.size(); ++row) {
    if (row > 0) append(file, symbosRecord(kSymbosNewRow, 0, variant));
    for (std::size_t column = 0; column + 1 < columns.size(); ++column) {
      append(file, symbosTile(cropped(picture, columns[column], rows[row], columns[column + 1] - columns[column],
                                      rows[row + 1] - rows[row]),
                              variant));
    }
  }
  return {name, file, picture.width, picture.height, shownIndexes(picture.indexes, kSymbosColours), ""};
}

SamplePicture singleSample(const std::string &name, const IndexedPicture &picture, SymbosVariant variant) {
  return tiledSample(name, picture, variant, {0, picture.width}, {0, picture.height});
}

void pasteWords(SamplePicture &sample, const IndexedPicture &tile, int left, int top) {
  for (int y = 0; y < tile.height; ++y) {
    for (int x = 0; x < tile.width && top + y < sample.height; ++x) {
      const std::uint8_t index = tile.indexes[static_cast<std::size_t>(y * tile.width + x)];
      sample.expected[static_cast<std::size_t>((top + y) * sample.width + left + x)] = kSymbosColours[index];
    }
  }
}

// The third row begins lower than the second ends, by the height of the first; what comes to lie below the picture
// is lost.
SamplePicture threeRows(const std::string &name, const std::vector<IndexedPicture> &rows, SymbosVariant variant) {
  SamplePicture sample = {name, openingBytes(variant), rows[0].width, 0, {}, ""};
  for (const IndexedPicture &row : rows) {
    if (sample.height > 0) append(sample.bytes, symbosRecord(kSymbosNewRow, 0, variant));
    const IndexedPicture left = cropped(row, 0, 0, 80, row.height);
    append(sample.bytes, symbosTile(left, variant));
    append(sample.bytes, symbosTile(cropped(row, 80, 0, row.width - 80, row.height), variant));
    sample.height += row.height;
  }
  sample.expected.resize(static_cast<std::size_t>(sample.width * sample.height));
  const int second = rows[0].height, third = second + (rows[0].height + rows[1].height);
  pasteWords(sample, rows[0], 0, 0);
  pasteWords(sample, rows[1], 0, second);
  pasteWords(sample, rows[2], 0, third);
  return sample;
}

// A folder with a picture in it.
IndexedPicture folderIcon() {
  IndexedPicture icon = blankPicture(24, 24, 0);
  fillBox(icon, 2, 5, 9, 3, 2);
  fillBox(icon, 1, 8, 22, 14, 2);
  drawFrame(icon, 1, 8, 22, 14, 1);
  drawFrame(icon, 2, 4, 10, 5, 1);
  fillBox(icon, 3, 8, 8, 2, 2);
  fillBox(icon, 6, 11, 12, 8, 0);
  drawFrame(icon, 6, 11, 12, 8, 3);
  drawLine(icon, 7, 17, 10, 13, 3);
  drawLine(icon, 10, 13, 14, 17, 3);
  fillBox(icon, 14, 13, 2, 2, 2);
  return icon;
}

// A window of the desktop with icons, in sixteen colours.
IndexedPicture desktopWindow() {
  IndexedPicture window = blankPicture(300, 180, 5);
  for (int y = 0; y < 180; ++y) fillBox(window, 0, y, 300, 1, y < 60 ? 7 : y < 120 ? 6 : 4);
  fillBox(window, 20, 24, 220, 130, 8);
  drawFrame(window, 20, 24, 220, 130, 1);
  fillBox(window, 21, 25, 218, 12, 5);
  drawText(window, 28, 27, "PICTURES", plainInk(8));
  fillBox(window, 226, 27, 9, 8, 15);
  drawText(window, 227, 27, "x", plainInk(8));
  constexpr std::array<std::uint8_t, 8> kInks = {2, 9, 10, 11, 12, 13, 14, 15};
  for (int i = 0; i < 8; ++i) {
    const int x = 34 + i % 4 * 52, y = 50 + i / 4 * 52;
    fillBox(window, x, y, 32, 24, kInks[static_cast<std::size_t>(i)]);
    drawFrame(window, x, y, 32, 24, 1);
    drawLine(window, x + 2, y + 21, x + 14, y + 6, 1);
    drawLine(window, x + 14, y + 6, x + 29, y + 21, 1);
    drawText(window, x + 8, y + 28, "A" + std::to_string(i), plainInk(1));
  }
  fillBox(window, 0, 166, 300, 14, 13);
  fillBox(window, 0, 166, 300, 1, 8);
  drawText(window, 6, 170, "START", plainInk(3));
  drawText(window, 252, 170, "12:34", plainInk(1));
  return window;
}

} // namespace

void addSymbosSamples(std::vector<SamplePicture> &pictures) {
  const IndexedPicture bay = inFourColours(renderPart(sunsetBay, 240, 180, {8, 24, 1, 1}));
  pictures.push_back(singleSample("BAY.SGX", bay, SymbosVariant::kSplitBits));
  pictures.push_back(singleSample("FOLDER.SGX", folderIcon(), SymbosVariant::kSplitBits));
  const IndexedPicture flower = inFourColours(renderPart(sunflower, 320, 200, {0, 2, 0.8, 1}));
  pictures.push_back(tiledSample("FLOWER.SGX", flower, SymbosVariant::kSplitBits, {0, 252, 320}, {0, 200}));
  const IndexedPicture wide = inFourColours(renderPart(cityNight, 480, 252, {0, 20, 0.53, 0.7}));
  pictures.push_back(tiledSample("CITY.SGX", wide, SymbosVariant::kSplitBits, {0, 160, 320, 480}, {0, 120, 252}));
  const IndexedPicture moon = inFourColours(renderPart(fullMoon, 320, 200, {20, 0, 0.7, 1}));
  pictures.push_back(tiledSample("MOON.SGX", moon, SymbosVariant::kPairedBits, {0, 120, 240, 320}, {0, 200}));
  const IndexedPicture planet = inFourColours(renderPart(ringedPlanet, 243, 180, {6, 20, 1, 1}));
  pictures.push_back(tiledSample("PLANET.SGX", planet, SymbosVariant::kPairedBits, {0, 119, 243}, {0, 100, 180}));
  pictures.push_back(singleSample("WINDOW.SGX", desktopWindow(), SymbosVariant::kSixteenColours));
  const IndexedPicture balloon = inSixteenColours(renderPart(balloons, 500, 300, {0, 0, 0.51, 0.7}));
  pictures.push_back(
      tiledSample("BALLOONS.SGX", balloon, SymbosVariant::kSixteenColours, {0, 250, 500}, {0, 140, 300}));
  const IndexedPicture castle = inSixteenColours(renderPart(castleHill, 301, 200, {0, 8, 0.85, 1}));
  pictures.push_back(tiledSample("CASTLE.SGX", castle, SymbosVariant::kSixteenColours, {0, 99, 203, 301}, {0, 200}));
  append(pictures.back().bytes, symbosRecord(kSymbosEnd, 0, SymbosVariant::kSixteenColours));
}

void addOddSymbosSamples(std::vector<SamplePicture> &pictures) {
  const std::vector<TruePicture> scenes = {renderPart(balloons, 160, 40, {60, 30, 1, 1}),
                                           renderPart(castleHill, 160, 60, {50, 70, 1, 1}),
                                           renderPart(sunsetBay, 160, 90, {50, 100, 1, 1})};
  std::vector<IndexedPicture> four, sixteen;
  for (const TruePicture &scene : scenes) {
    four.push_back(inFourColours(scene));
    sixteen.push_back(inSixteenColours(scene));
  }
  pictures.push_back(threeRows("odd/three_rows_split.SGX", four, SymbosVariant::kSplitBits));
  pictures.push_back(threeRows("odd/three_rows_paired.SGX", four, SymbosVariant::kPairedBits));
  pictures.push_back(threeRows("odd/three_rows_16.SGX", sixteen, SymbosVariant::kSixteenColours));

  const SamplePicture icon = singleSample("odd/end_record.SGX", folderIcon(), SymbosVariant::kSplitBits);
  pictures.push_back(icon);
  append(pictures.back().bytes, symbosRecord(kSymbosEnd, 0, SymbosVariant::kSplitBits));
  append(pictures.back().bytes, Bytes(40, 0x33)); // behind the end
  pictures.push_back({"odd/size_8x1.SGX", {2, 8, 1, 0x0F, 0xF5, 0, 0, 0}, 8, 1, {}, ""});
  pictures.back().expected = shownIndexes({2, 2, 2, 2, 1, 3, 1, 3}, kSymbosColours);
  // 24 lines, of which 19 and a half are there.
  SamplePicture cut = cutTo(icon, "odd/cut_in_tile.SGX", 3 + 19 * 6 + 3);
  std::fill(cut.expected.begin() + 19 * 24 + 12, cut.expected.end(), kSymbosColours[0]);
  pictures.push_back(cut);
  cut =
      cutTo(singleSample("", desktopWindow(), SymbosVariant::kSixteenColours), "odd/cut_in_tile_16.SGX", 8 + 90 * 150);
  std::fill(cut.expected.begin() + 90 * 300, cut.expected.end(), kSymbosColours[0]);
  pictures.push_back(cut);

  // The first tile is 64 bytes wide and counts for no width: its lines of 256 pixels run on into the lines below, and
  // the second tile lies on top of it. The heights of both make up the picture's.
  const IndexedPicture under = inFourColours(renderPart(hueWheel, 256, 20, {0, 60, 1, 1}));
  const IndexedPicture over = cropped(four[1], 0, 20, 160, 10);
  SamplePicture wrapped = {"odd/first_tile_wraps.SGX", {64, 0, 20}, 160, 30, std::vector<std::uint32_t>(160 * 30), ""};
  append(wrapped.bytes, packCrumbs(under.indexes));
  append(wrapped.bytes, symbosTile(over, SymbosVariant::kPairedBits));
  for (std::size_t y = 0; y < 20; ++y) {
    for (std::size_t x = 0; x < 256; ++x) wrapped.expected[y * 160 + x] = kSymbosColours[under.indexes[y * 256 + x]];
  }
  pasteWords(wrapped, over, 0, 0);
  pictures.push_back(wrapped);
  // A new row before any tile brings ten lines without pixels.
  SamplePicture lowered = {"odd/blank_top.SGX", {64, 0, 0}, 160, 70, std::vector<std::uint32_t>(160 * 70), ""};
  append(lowered.bytes, symbosRecord(kSymbosNewRow, 10, SymbosVariant::kPairedBits));
  append(lowered.bytes, symbosTile(four[1], SymbosVariant::kPairedBits));
  pasteWords(lowered, four[1], 0, 10);
  pictures.push_back(lowered);
  // The spare pixel of the right tile, index 0, comes to lie at the left of the next line.
  const IndexedPicture ragged = cropped(sixteen[1], 0, 0, 101, 60);
  SamplePicture spare =
      tiledSample("odd/right_tile_wraps.SGX", ragged, SymbosVariant::kSixteenColours, {0, 50, 101}, {0, 60});
  for (std::size_t y = 1; y < 60; ++y) spare.expected[y * 101] = kSymbosColours[0];
  pictures.push_back(spare);
  // 23 bytes a line hold 92 pixels, of which 90 count: with 22.5 x 41 = 922.5 bytes the first 923 of 943 are taken as
  // split bits and the others as paired ones.
  const IndexedPicture narrow = inFourColours(renderPart(castleHill, 90, 41, {94, 60, 1, 2}));
  SamplePicture mixed = singleSample("odd/width_90.SGX", narrow, SymbosVariant::kSplitBits);
  const Bytes paired = symbosTile(narrow, SymbosVariant::kPairedBits);
  constexpr std::ptrdiff_t kSplitEnd = 3 + 923;
  std::copy(paired.begin() + kSplitEnd, paired.end(), mixed.bytes.begin() + kSplitEnd);
  pictures.push_back(mixed);

  for (const auto &[name, first, second] :
       {std::tuple{"odd/mark_64_1.SGX", 64, 1}, std::tuple{"odd/mark_64_4.SGX", 64, 4},
        std::tuple{"odd/mark_65_0.SGX", 65, 0}, std::tuple{"odd/mark_255_0.SGX", 255, 0}}) {
    SamplePicture bad = withByte(icon, name, 0, static_cast<std::uint8_t>(first));
    bad.bytes[1] = static_cast<std::uint8_t>(second);
    pictures.push_back({bad.name, bad.bytes, 0, 0, {}, "*** Error: Not a valid SGX file!"});
  }
}

} // namespace samples
