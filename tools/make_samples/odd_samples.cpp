#include <algorithm>
#include <string_view>

#include "colour_reduction.h"
#include "expected_colours.h"
#include "pixel_art.h"
#include "sample_builders.h"
#include "sample_groups.h"
#include "sample_variants.h"

namespace samples {

namespace {

constexpr std::size_t kHeaderSize = 7;

// The pictures that the odd files hold.
struct Originals {
  IndexedPicture chart = paletteChart(); // Screen 5
  IndexedPicture castle;                 // Screen 5 in castlePalette
  Palette castlePalette{};
  IndexedPicture desk = windowDesk();             // Screen 7
  IndexedPicture globe = wireGlobe();             // Screen 6
  IndexedPicture listing = programListing();      // Screens 2 and 4
  Bytes colours = byteColourChart();              // Screen 8
  TruePicture wheel = renderScene(hueWheel, 256); // Screens 10 to 12
};

Originals makeOriginals() {
  Originals originals;
  const TruePicture scene = renderScene(castleHill, 256);
  originals.castlePalette = choosePalette(scene, 16);
  originals.castle = diffuseToPalette(scene, coloursOfPalette(originals.castlePalette), 16);
  return originals;
}

SamplePicture withEndAddress(SamplePicture picture, const char *name, std::uint16_t end) {
  picture.name = name;
  picture.bytes[3] = static_cast<std::uint8_t>(end & 0xFF);
  picture.bytes[4] = static_cast<std::uint8_t>(end >> 8);
  return picture;
}

// The body grows with zeros or ends early; the header stays.
SamplePicture withBodySize(SamplePicture picture, const char *name, std::size_t size) {
  picture.name = name;
  picture.bytes.resize(kHeaderSize + size);
  return picture;
}

Bytes bytesOfText(std::string_view text) { return {text.begin(), text.end()}; }

void addEndAddresses(std::vector<SamplePicture> &pictures, const Originals &originals) {
  const SamplePicture chart = nibbleSample("", originals.chart, {});
  const SamplePicture castle = nibbleSample("", originals.castle, originals.castlePalette);
  const SamplePicture globe = crumbSample("", originals.globe, {});
  const SamplePicture desk = nibbleSample("", originals.desk, {});
  const SamplePicture colours = grbSample("", originals.colours);
  const SamplePicture wheel = yjkSample("", originals.wheel);
  const SamplePicture listing = patternSample("", originals.listing, {});
  pictures.push_back(withEndAddress(chart, "odd/end_69ff.SC5", 0x69FF));
  pictures.push_back(withEndAddress(chart, "odd/end_6a00.SC5", 0x6A00));
  pictures.push_back(withEndAddress(castle, "odd/end_769f.SC5", 0x769F));
  pictures.push_back(withBodySize(withEndAddress(castle, "", 0x76FF), "odd/end_76ff.SC5", 0x7700));
  pictures.push_back(withBodySize(withEndAddress(castle, "", 0x7FFF), "odd/end_7fff.SC5", 0x8000));
  pictures.push_back(refused(withEndAddress(chart, "odd/end_69fe.SC5", 0x69FE)));
  pictures.push_back(refused(withBodySize(withEndAddress(castle, "", 0x8000), "odd/end_8000.SC5", 0x8001)));
  pictures.push_back(refused(withEndAddress(globe, "odd/end_69fe.SC6", 0x69FE)));
  pictures.push_back(withEndAddress(globe, "odd/end_7fff.SC6", 0x7FFF));
  pictures.push_back(withBodySize(nibbleSample("", originals.desk, kOverlayPalette), "", 0xFAA1));
  pictures.back() = withEndAddress(pictures.back(), "odd/end_faa0.SC7", 0xFAA0);
  pictures.push_back(withEndAddress(desk, "odd/end_1234.SC7", 0x1234));
  pictures.push_back(refused(withEndAddress(desk, "odd/end_8000.SC7", 0x8000)));
  pictures.push_back(refused(withEndAddress(desk, "odd/end_d3fe.SR7", 0xD3FE)));
  pictures.push_back(withEndAddress(colours, "odd/end_d3ff.SC8", 0xD3FF));
  pictures.push_back(withEndAddress(colours, "odd/end_d400.SR8", 0xD400));
  pictures.push_back(withEndAddress(colours, "odd/end_0000.GE8", 0x0000));
  pictures.push_back(refused(withEndAddress(colours, "odd/end_d3fe.PIC", 0xD3FE)));
  pictures.push_back(withEndAddress(wheel, "odd/end_d3ff.SCC", 0xD3FF));
  pictures.push_back(withEndAddress(wheel, "odd/end_d400.SRC", 0xD400));
  pictures.push_back(refused(withEndAddress(wheel, "odd/end_d3fe.S12", 0xD3FE)));
  pictures.push_back(refused(withEndAddress(wheel, "odd/end_8000.SCA", 0x8000)));
  pictures.push_back(withEndAddress(listing, "odd/end_37ff.SC2", 0x37FF));
  pictures.push_back(refused(withEndAddress(listing, "odd/end_37fe.SC2", 0x37FE)));
  pictures.push_back(refused(withEndAddress(listing, "odd/end_8000.SR4", 0x8000)));
  pictures.push_back(withBodySize(withEndAddress(listing, "", 0x3FFF), "odd/end_3fff.SC2", 0x4000));
}

void addBodiesAndPalettes(std::vector<SamplePicture> &pictures, const Originals &originals) {
  const SamplePicture castle = nibbleSample("", originals.castle, originals.castlePalette);
  const ColourWords castleColours = coloursOfPalette(originals.castlePalette);
  // What the body does not hold stays zero, in the default palette since that is lost as well.
  constexpr std::size_t kShortBody = 80 * 128;
  SamplePicture cut = withBodySize(castle, "odd/short_body.SC5", kShortBody);
  Bytes indexes = originals.castle.indexes;
  std::fill(indexes.begin() + kShortBody * 2, indexes.end(), std::uint8_t{0});
  cut.expected = shownIndexes(indexes, kDefaultColours);
  pictures.push_back(cut);
  cut = withBodySize(grbSample("", originals.colours), "odd/short_body.SC8", 100 * 256 + 100);
  std::fill(cut.expected.begin() + 100 * 256 + 100, cut.expected.end(), 0u);
  pictures.push_back(cut);
  cut = withBodySize(yjkSample("", originals.wheel), "odd/short_body.S12", 120 * 256);
  std::fill(cut.expected.begin() + 120 * 256, cut.expected.end(), 0u);
  pictures.push_back(cut);
  cut = withBodySize(patternSample("", originals.listing, {}), "odd/short_body.SC2", 0x2000);
  std::fill(cut.expected.begin(), cut.expected.end(), 0u);
  pictures.push_back(cut);
  pictures.push_back(withBodySize(castle, "odd/header_only.SC5", 0));
  pictures.back().expected.assign(256 * 212, 0u);
  // The header promises the pixels only, the palette behind them counts all the same.
  pictures.push_back(withEndAddress(castle, "odd/more_than_promised.SC5", 0x69FF));
  pictures.push_back(withBodySize(castle, "odd/much_longer_body.SC5", 0x12345));

  SamplePicture half = withBodySize(castle, "odd/half_palette.SC5", kPaletteOf256Wide + 16);
  ColourWords halfColours = castleColours;
  std::fill(halfColours.begin() + 8, halfColours.end(), 0u);
  half.expected = shownIndexes(originals.castle.indexes, halfColours);
  pictures.push_back(half);
  SamplePicture inDefault = castle;
  inDefault.expected = shownIndexes(originals.castle.indexes, kDefaultColours);
  constexpr std::size_t kLastEntry = kHeaderSize + kPaletteOf256Wide + 30;
  pictures.push_back(withByte(inDefault, "odd/palette_red_80.SC5", kLastEntry, 0x80));
  pictures.push_back(withByte(inDefault, "odd/palette_blue_08.SC5", kLastEntry, 0x08));
  pictures.push_back(withByte(inDefault, "odd/palette_green_08.SC5", kLastEntry + 1, 0x08));
  // Only the first four entries of Screen 6 are read, so a bad fifth one does no harm.
  const SamplePicture globe = crumbSample("", originals.globe, kOverlayPalette);
  pictures.push_back(withByte(globe, "odd/palette_fifth_ff.SC6", kHeaderSize + kPaletteOf256Wide + 8, 0xFF));
  // The same bytes with and without the palette of Screen 4.
  const SamplePicture listing = patternSample("odd/palette_used.SC4", originals.listing, kOverlayPalette);
  pictures.push_back(listing);
  pictures.push_back(renamed(listing, "odd/palette_ignored.SC2"));
  pictures.back().expected = shownIndexes(originals.listing.indexes, kDefaultColours);
}

// The packed body of a file as a reader sees it for which all bytes beyond the end are zero.
Bytes unpackSlowly(const Bytes &file, std::size_t size) {
  Bytes unpacked;
  std::size_t position = kHeaderSize;
  const auto next = [&]() -> std::size_t { return position < file.size() ? file[position++] : 0u; };
  while (unpacked.size() < size) {
    std::size_t count = next();
    if (count == 0) count = next();
    if (count == 0) count = 256;
    unpacked.insert(unpacked.end(), count, static_cast<std::uint8_t>(next()));
  }
  unpacked.resize(size);
  return unpacked;
}

void addPackedFiles(std::vector<SamplePicture> &pictures, const Originals &originals) {
  const SamplePicture packed = packedSample("", originals.chart);
  pictures.push_back(withEndAddress(packed, "odd/packed_end_8000.SR5", 0x8000));
  pictures.push_back(ignored(renamed(packed, "odd/packed.SC5")));
  pictures.push_back(ignored(renamed(packedSample("", originals.desk), "odd/packed.SC7")));
  pictures.push_back(refused(renamed(packed, "odd/packed.SC6")));
  pictures.push_back(refused(withByte(packed, "odd/packed_start_0100.SR5", 2, 0x01)));
  pictures.push_back(refused(withByte(packed, "odd/packed_execution_0001.SR5", 5, 0x01)));
  // Cut off behind a count, whose value is then 0 as all bytes beyond the file are. The rest of the picture is runs
  // of zeros.
  SamplePicture truncated = packed;
  truncated.name = "odd/packed_truncated.SR5";
  const Bytes memory = packNibbles(originals.chart.indexes);
  truncated.bytes.resize(kHeaderSize + packRunLength({memory.begin(), memory.begin() + 90 * 128}).size() - 1);
  const Bytes unpacked = unpackSlowly(truncated.bytes, memory.size());
  truncated.expected.clear();
  for (const std::uint8_t byte : unpacked) {
    truncated.expected.push_back(kDefaultColours[byte / 16]);
    truncated.expected.push_back(kDefaultColours[byte % 16]);
  }
  pictures.push_back(truncated);
}

void addRefusedFiles(std::vector<SamplePicture> &pictures, const Originals &originals) {
  const SamplePicture chart = nibbleSample("", originals.chart, {});
  const SamplePicture colours = grbSample("", originals.colours);
  pictures.push_back(ignored(withByte(chart, "odd/first_byte_ff.SC5", 0, 0xFF)));
  pictures.push_back(refused(withByte(chart, "odd/first_byte_ff.SR5", 0, 0xFF)));
  pictures.push_back(refused(withByte(colours, "odd/first_byte_ff.SC8", 0, 0xFF)));
  pictures.push_back(refused(withByte(chart, "odd/start_0001.SC5", 1, 0x01)));
  pictures.push_back(refused(withByte(chart, "odd/start_8000.SR5", 2, 0x80)));
  pictures.push_back(refused(withByte(chart, "odd/execution_0001.SC5", 5, 0x01)));
  pictures.push_back(refused(withByte(colours, "odd/execution_0100.SC8", 6, 0x01)));
  pictures.push_back(ignored(blankFile("odd/empty.SC5")));
  pictures.push_back(refused(blankFile("odd/empty.SR5")));
  pictures.push_back(refused(blankFile("odd/empty.SC8")));
  pictures.push_back(refused(blankFile("odd/empty.SC2")));
  // A cartridge image shares the extension of Screen 12.
  SamplePicture cartridge = blankFile("odd/cartridge.SCC");
  cartridge.bytes = {'A', 'B', 0x10, 0x40};
  for (int i = 4; i < 16384; ++i) cartridge.bytes.push_back(static_cast<std::uint8_t>(scatter(i, 0, 150) * 256));
  pictures.push_back(refused(cartridge));
  SamplePicture notes = blankFile("odd/notes.PIC");
  notes.bytes = bytesOfText("Pictures on this disk:\r\n1. The castle\r\n2. The harbour (not finished)\r\n\x1A");
  pictures.push_back(refused(notes));
}

void addNames(std::vector<SamplePicture> &pictures, const Originals &originals) {
  const SamplePicture castle = nibbleSample("", originals.castle, originals.castlePalette);
  pictures.push_back(renamed(castle, "odd/picture.sc5"));
  pictures.push_back(grbSample("odd/Picture.Sc8", originals.colours));
  pictures.push_back(packedSample("odd/Desk.sR7", originals.desk));
  pictures.push_back(refused(withByte(castle, "odd/bad start.Sr5", 1, 0x01)));
  pictures.push_back(renamed(castle, "odd/two.dots.SC5"));
  // "Castle of Japan" and "castle to look at", with an accent and a blank; UTF-8.
  pictures.push_back(renamed(castle, "odd/\xE6\x97\xA5\xE6\x9C\xAC\xE3\x81\xAE\xE5\x9F\x8E.SC5"));
  pictures.push_back(renamed(castle, "odd/ch\xC3\xA2teau \xC3\xA0 voir.SC5"));
}

} // namespace

std::vector<SamplePicture> oddSamplePictures() {
  const Originals originals = makeOriginals();
  std::vector<SamplePicture> pictures;
  addEndAddresses(pictures, originals);
  addBodiesAndPalettes(pictures, originals);
  addPackedFiles(pictures, originals);
  addRefusedFiles(pictures, originals);
  addNames(pictures, originals);
  Gallery gallery;
  addOddCopySamples(pictures, gallery);
  addOddPaintSamples(pictures, gallery);
  addOddHamSamples(pictures);
  addOddG9bSamples(pictures, gallery);
  addOddSymbosSamples(pictures);
  addOddVscreenSamples(pictures, gallery);
  addOddVideoSamples(pictures);
  return pictures;
}

} // namespace samples
