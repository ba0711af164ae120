// PNG files of all samples, read back by libpng.
#include "core/colour_numbers.h"
#include "core/png_export.h"
#include "core/rendering.h"
#include "pixels/png.h"
#include "pixels/thumbnail.h"
#include "samples/samples.h"

#include <png.h>

namespace {

using Words = std::vector<uint32_t>;

struct ReadPng {
  int depth = 0; // in the file; libpng unpacks the rows
  bool tallPixels = false;
  Words words = {}, palette = {}; // 0x00RRGGBB
  Bytes entries = {};
};

// What libpng reads; nothing may be wrong with the file.
ReadPng readPng(Bytes file) {
  const auto fail = [](png_structp, png_const_charp text) { throw std::runtime_error(text); };
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, fail);
  png_infop info = png_create_info_struct(png);
  std::FILE *stream = fmemopen(file.data(), file.size(), "r");
  png_init_io(png, stream);
  png_read_png(png, info, PNG_TRANSFORM_PACKING, nullptr);
  EXPECT_EQ(std::ftell(stream), std::ssize(file));
  std::fclose(stream);
  const png_uint_32 width = png_get_image_width(png, info), height = png_get_image_height(png, info);
  ReadPng read{.depth = file[24], .tallPixels = png_get_pixel_aspect_ratio(png, info) == 0.5F};
  png_colorp colours = nullptr;
  int colourCount = 0;
  png_get_PLTE(png, info, &colours, &colourCount);
  for (int i = 0; i < colourCount; ++i) {
    read.palette.push_back(uint32_t{colours[i].red} << 16 | uint32_t{colours[i].green} << 8 | colours[i].blue);
  }
  for (png_uint_32 y = 0; y < height; ++y) {
    const png_bytep row = png_get_rows(png, info)[y];
    for (size_t x = 0; x < width; ++x) {
      const uint8_t *pixel = &row[3 * x];
      const bool indexed = !read.palette.empty();
      if (indexed) read.entries.push_back(row[x]);
      read.words.push_back(indexed ? read.palette.at(row[x])
                                   : uint32_t{pixel[0]} << 16 | uint32_t{pixel[1]} << 8 | pixel[2]);
    }
  }
  png_destroy_read_struct(&png, &info, nullptr);
  return read;
}

// The file of the shown picture.
Bytes shownPng(ViewerState &viewer) {
  Bytes file;
  EXPECT_EQ(putShownPng(viewer, putInto(file)), "");
  return file;
}

TEST(Png, EverySampleComesBack) {
  std::map<int, int> depths; // of indexed ones
  for (const samples::SamplePicture &sample : allSamples()) {
    SCOPED_TRACE(sample.name);
    TestViewer test;
    openSample(test, sample, sample.bytes);
    ViewerState &viewer = test.viewer;
    if (viewer.frameBits.empty()) continue;
    const Words frame = viewer.frameBits;
    const ReadPng png = readPng(shownPng(viewer));
    ASSERT_TRUE(png.words == frame && viewer.frameBits == frame);
    EXPECT_EQ(png.tallPixels, viewer.window.menuDoubleHeight.checked);
    if (viewer.player != nullptr || viewer.picture.hasPalette != kTrue) continue; // see the test of fixed colours
    const Words drawn = renderEntries(viewer);
    const bool exact = std::ranges::all_of(drawn, [](uint32_t word) { return (word & kEntryMark) != 0; });
    ASSERT_EQ(!png.palette.empty(), exact && viewer.picture.colourCount > 0);
    for (size_t i = 0; i < png.entries.size(); ++i) ASSERT_EQ(png.entries[i] + kEntryMark, drawn[i]);
    const auto colours = std::span(viewer.palette).first(png.palette.size());
    EXPECT_TRUE(std::ranges::equal(png.palette, colours));
    EXPECT_EQ(png.palette.size(), exact ? static_cast<size_t>(viewer.picture.colourCount) : 0U);
    if (exact) ++depths[png.depth];
  }
  EXPECT_TRUE(depths[2] > 0 && depths[4] > 0 && depths[8] > 0);
}

TEST(Png, VideosAndFixedColours) {
  using Row = std::tuple<const char *, size_t, int>; // palette, depth
  for (const auto &[name, colours, depth] :
       {Row{"COAST.SC8", 256, 8}, Row{"COAST.EV8", 256, 8}, Row{"SUNSET.EVA", 0, 8}, Row{"COAST.VID", 16, 4},
        Row{"COAST.SCC", 0, 8}}) {
    TestViewer test;
    openSample(test, sampleNamed("COAST.SC5"), sampleNamed("COAST.SC5").bytes); // leaves its mark of a palette
    openSample(test, sampleNamed(name), sampleNamed(name).bytes);
    const ReadPng png = readPng(shownPng(test.viewer));
    EXPECT_EQ(png.palette.size(), colours) << name;
    EXPECT_EQ(png.depth, depth) << name;
  }
}

TEST(Png, IsSavedBesideThePictureAndCopied) {
  TestViewer test;
  test.open("d\\a.SC8", sampleNamed("COAST.SC8").bytes);
  const Bytes png = shownPng(test.viewer);
  for (const bool yes : {false, true, false}) { // one's own file is replaced without a question
    memoryDisk()["d\\a.png"] = {1};
    test.platform.answersYes = yes;
    test.platform.log.clear();
    pressKey(test.viewer, {.code = 'S', .ctrl = true, .shift = true});
    const bool replaced = memoryDisk()["d\\a.png"] == png;
    EXPECT_EQ(replaced, yes || test.platform.log.empty());
    EXPECT_EQ(test.platform.log,
              replaced && !yes ? std::vector<std::string>{}
                               : std::vector<std::string>{"askYesNo Korilan: d\\a.png already exists.\n\nReplace it?"});
  }
  test.pressCtrl('C');
  EXPECT_TRUE(test.platform.clipboardPng == png);
}

TEST(Png, AfterARefusedFileThePictureIsSavedAsItIs) {
  TestViewer test;
  openSample(test, sampleNamed("COAST.SC5"), sampleNamed("COAST.SC5").bytes);
  const Words frame = test.viewer.frameBits;
  test.viewer.vram.clearFrom(0);
  EXPECT_TRUE(numberPicture(test.viewer).palette.empty());
  EXPECT_TRUE(test.viewer.frameBits == frame);
}

// Sizes around the bytes of a row, the deflate window and the blocks; pixels without a pattern, in runs, of few
// colours.
TEST(Png, AnySizeAndPixels) {
  using Row = std::tuple<int32_t, int32_t, size_t>; // colours; 0: RGB
  for (const auto &[width, height, colours] :
       {Row{1, 1, 1}, Row{7, 3, 2}, Row{9, 2, 3}, Row{5, 300, 16}, Row{70'000, 3, 17}, Row{300, 300, 256}, Row{1, 1, 0},
        Row{401, 333, 0}, Row{100'000, 2, 0}, Row{2000, 1000, 5}}) {
    for (const uint32_t step : {0U, 1U, 97U}) {
      Words palette(colours), words;
      Bytes entries;
      for (size_t i = 0; i < colours; ++i) palette[i] = static_cast<uint32_t>(i % 200 * 0x010305);
      const Bytes pattern = noise(static_cast<size_t>(width) * static_cast<size_t>(height), step);
      for (size_t i = 0; i < pattern.size(); ++i) {
        const uint32_t value = step == 97 ? static_cast<uint32_t>(i / 700) : pattern[i] * step;
        if (colours != 0) entries.push_back(static_cast<uint8_t>(value % colours));
        words.push_back(colours != 0 ? palette[entries.back()] : value * 0x010203 & 0xFFFFFF);
      }
      Bytes file;
      EXPECT_EQ(putPng({words, width, height}, {entries, palette}, false, putInto(file)), "");
      const ReadPng png = readPng(file);
      EXPECT_TRUE(png.words == words && png.entries == entries && png.palette == palette) << width << " " << step;
      EXPECT_FALSE(png.tallPixels);
    }
  }
  for (const auto &[width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}}) {
    EXPECT_NE(putPng({{}, width, height}, {}, false, [](auto) { return std::string(); }), "");
  }
}

TEST(Png, AWriteThatFailsEndsItAndABitmap) {
  const Bytes pixels = noise(60'000, 1);
  const Words words(pixels.begin(), pixels.end());
  const PixelView picture{words, 200, 300};
  for (const bool png : {true, false}) {
    int writes = 0, failing = 1;
    const PutBytes put = [&](auto) { return ++writes == failing ? "disk is full" : std::string(); };
    const auto write = [&] {
      return png ? putPng(picture, {}, true, put) : putBitmap(picture, BitmapHeader::kFile, put);
    };
    for (; write() != ""; ++failing, writes = 0) EXPECT_EQ(writes, failing);
    EXPECT_EQ(writes, failing - 1);
    EXPECT_GE(writes, png ? 16 : 7); // signature, and three pieces a chunk; header, and 180,000 bytes in chunks
  }
}

TEST(Thumbnail, WholeFactorsUpMeansDown) {
  const Words frame{0x000000, 0x0000FE, 0x640000, 0x640000, 0x000064, 0x0000C8, 0x00C800, 0x00C800}; // 4 x 2
  using Row = std::tuple<int32_t, bool, int32_t, int32_t, Words>;
  for (const auto &[side, tall, width, height, expected] :
       {Row{4, false, 4, 2, frame}, Row{11, false, 8, 4, {}}, Row{4, true, 4, 4, {}},
        Row{2, false, 2, 1, {0x00008B, 0x326400}}, Row{2, true, 2, 2, {0x00007F, 0x640000, 0x000096, 0x00C800}},
        Row{1, false, 1, 1, {0x193245}}}) {
    Thumbnail thumbnail;
    ASSERT_TRUE(makeThumbnail({frame, 4, 2}, tall, side, thumbnail));
    EXPECT_TRUE(thumbnail.width == width && thumbnail.height == height) << side;
    EXPECT_EQ(thumbnail.words.size(), static_cast<size_t>(width) * static_cast<size_t>(height));
    EXPECT_TRUE(expected.empty() || thumbnail.words == expected) << side;
  }
}

} // namespace
