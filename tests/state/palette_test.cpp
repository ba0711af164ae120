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
    // White first, so that black counts as well; behind the count an entry that is wrong.
    read(viewer, joined({{0x77, 0x07}, word(value), {0x80}}), 2);
    const bool firstValid = (first & 0x88) == 0, valid = firstValid && second < 8;
    const uint32_t expected = packColour(rounded(first >> 4), rounded(second & 7), rounded(first & 7));
    ASSERT_EQ(viewer.palette[0], valid ? 0xFFFFFF : 0) << value;
    ASSERT_EQ(viewer.palette[1], valid ? expected : 0x080808) << value;
    ASSERT_EQ(viewer.palette[2] == kUntouched && viewer.palette[15] == kUntouched, valid);
    ASSERT_EQ(viewer.palette[16], kUntouched);
    ASSERT_EQ(viewer.paletteFilePos, kStart + (!firstValid ? 2 : !valid ? 3 : 4)) << value;
  }
}

TEST(Palette, OfBlackAloneIsTheDefaultOne) {
  ViewerState viewer;
  read(viewer, joined({Bytes(4), {0x21, 0x03}}), 2); // black as far as the count
  EXPECT_EQ(viewer.palette[1], 0x080808U);
  EXPECT_EQ(viewer.paletteFilePos, kStart + 4);
}

} // namespace
