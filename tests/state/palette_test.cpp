#include "state/palette.h"

#include "support/bytes.h"
#include "support/test_viewer.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr uint32_t kUntouched = 0x00123456;
constexpr int32_t kStart = 4; // position of the first palette byte; what comes before would be refused

// Levels of the video processor's standard colours, turned into colours by cutting off the fraction.
uint32_t defaultColour(size_t entry) {
  constexpr const char *kLevels[16] = {"000", "000", "161", "373", "117", "237", "511", "267",
                                       "711", "733", "661", "664", "141", "625", "555", "777"};
  const auto level = [&](size_t channel) { return static_cast<uint32_t>(kLevels[entry][channel] - '0') * 255 / 7; };
  return entry == 1 ? 0x080808 : packColour(level(0), level(1), level(2));
}

struct PaletteViewer : TestViewer {
  // Reads a palette of `count` colours from a file that ends with `bytes`.
  void read(const Bytes &bytes, uint8_t count) {
    viewer.palette.fill(kUntouched);
    memoryDisk()["palette"] = withBytesAt({0xFF, 0xFF, 0xFF}, kStart - 1, bytes);
    openInputFile(viewer.inputFile, memoryFiles(), "palette");
    viewer.colourCount = count;
    viewer.paletteFilePos = kStart;
    readFilePalette(viewer);
  }
};

TEST(Palette, EveryEntryOfTwoBytes) {
  const auto rounded = [](int level) { return static_cast<uint32_t>(std::lround(level * 255.0 / 7)); };
  PaletteViewer window;
  const auto &palette = window.viewer.palette;
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      // A white entry goes before, so that black counts as well.
      window.read({0x77, 0x07, static_cast<uint8_t>(first), static_cast<uint8_t>(second)}, 2);
      const bool firstValid = (first & 0x88) == 0;
      const bool valid = firstValid && second < 8;
      const uint32_t expected = packColour(rounded(first >> 4), rounded(second & 7), rounded(first & 7));
      ASSERT_EQ(palette[0], valid ? 0xFFFFFF : 0) << first << " " << second;
      ASSERT_EQ(palette[1], valid ? expected : 0x080808) << first << " " << second;
      ASSERT_EQ(window.viewer.paletteFilePos, kStart + (!firstValid ? 2 : !valid ? 3 : 4)) << first << " " << second;
    }
  }
}

TEST(Palette, FallsBackToTheDefaultAsAWhole) {
  Bytes good;
  for (int i = 0; i < 16; ++i) good.insert(good.end(), {0x21, 0x03}); // (73, 109, 36)
  struct Row {
    const char *name;
    Bytes bytes;
    uint8_t count;
    size_t readEntries; // from the file; 0: the default colours
    int32_t endsAt;     // bytes behind the start
  };
  for (const Row &row : {Row{"sixteen good entries", good, 16, 16, 32},
                         Row{"bit 3 in the last entry", withBytesAt(good, 30, {0x29}), 16, 0, 30},
                         Row{"green 8 in the last entry", withBytesAt(good, 31, {0x08}), 16, 0, 31},
                         Row{"bad entry behind the count", withBytesAt(good, 8, {0x80}), 4, 4, 8},
                         Row{"four black entries", withBytesAt(good, 0, Bytes(8)), 4, 0, 8},
                         Row{"behind the end of the file", {}, 16, 0, 32}}) {
    SCOPED_TRACE(row.name);
    PaletteViewer window;
    window.read(row.bytes, row.count);
    EXPECT_EQ(window.viewer.paletteFilePos, kStart + row.endsAt);
    for (size_t i = 0; i < 256; ++i) {
      const bool isDefault = row.readEntries == 0 && i < 16;
      EXPECT_EQ(window.viewer.palette[i], isDefault ? defaultColour(i) : i < row.readEntries ? 0x496D24 : kUntouched);
    }
  }
}

} // namespace
