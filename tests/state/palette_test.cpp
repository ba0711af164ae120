// The palette of a file.
#include "state/palette.h"
#include "support/test_viewer.h"

#include <cmath>

namespace {

constexpr uint32_t kUntouched = 0x00123456;
constexpr int32_t kStart = 4; // position of the first palette byte; what comes before would be refused

// Reads a palette of `count` colours from a file that ends with `bytes`.
void read(ViewerState &viewer, const Bytes &bytes, uint8_t count) {
  viewer.palette.fill(kUntouched);
  memoryDisk()["palette"] = withBytesAt({0xFF, 0xFF, 0xFF}, kStart - 1, bytes);
  openInputFile(viewer.inputFile, memoryFiles(), "palette");
  viewer.colourCount = count;
  viewer.paletteFilePos = kStart;
  readFilePalette(viewer);
}

TEST(Palette, EveryEntryOfTwoBytes) {
  const auto rounded = [](int level) { return static_cast<uint32_t>(std::lround(level * 255.0 / 7)); };
  ViewerState viewer;
  for (int value = 0; value < 65536; ++value) {
    const int first = value & 255, second = value >> 8;
    read(viewer, joined({{0x77, 0x07}, word(value)}), 2); // white first, so that black counts as well
    const bool firstValid = (first & 0x88) == 0, valid = firstValid && second < 8;
    const uint32_t expected = packColour(rounded(first >> 4), rounded(second & 7), rounded(first & 7));
    ASSERT_EQ(viewer.palette[0], valid ? 0xFFFFFF : 0) << value;
    ASSERT_EQ(viewer.palette[1], valid ? expected : 0x080808) << value;
    ASSERT_EQ(viewer.paletteFilePos, kStart + (!firstValid ? 2 : !valid ? 3 : 4)) << value;
  }
}

TEST(Palette, FallsBackToTheDefaultAsAWhole) {
  Bytes good;
  for (int i = 0; i < 16; ++i) good.insert(good.end(), {0x21, 0x03});    // (73, 109, 36)
  using Row = std::tuple<const char *, Bytes, uint8_t, size_t, int32_t>; // count, entries read, bytes taken
  for (const auto &[name, bytes, count, readEntries, taken] :
       {Row{"sixteen good entries", good, 16, 16, 32},
        Row{"green 8 in the last entry", withBytesAt(good, 31, {0x08}), 16, 0, 31},
        Row{"bad entry behind the count", withBytesAt(good, 8, {0x80}), 4, 4, 8},
        Row{"four black entries", withBytesAt(good, 0, Bytes(8)), 4, 0, 8},
        Row{"behind the end of the file", {}, 16, 0, 32}}) {
    SCOPED_TRACE(name);
    ViewerState viewer;
    read(viewer, bytes, count);
    EXPECT_EQ(viewer.paletteFilePos, kStart + taken);
    const bool isDefault = readEntries == 0;
    EXPECT_EQ(viewer.palette[1], isDefault ? 0x080808 : 0x496D24);
    for (size_t i = 2; i < 256; ++i) {
      EXPECT_EQ(viewer.palette[i] == kUntouched, i >= (isDefault ? 16 : readEntries));
    }
  }
}

} // namespace
