#include "screens/ham_picture.h"
#include "screens/picture_bytes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <span>
#include <tuple>

namespace {

// Even and odd palette at 0x100 and 0x800, even and odd pixels at 0x1000 and 0x10000.
Bytes header(int height, uint8_t interlace) {
  const Bytes offsets = joined({word(0x100), word(0), word(0x800), word(0), word(0x1000), word(0), word(0), word(1)});
  return joined({{'H', 'A', 'M', 1, 0x20, 0, 0xEE, interlace}, word(512), word(height), Bytes(4, 0xEE), offsets});
}

// Levels above 7 are cut.
uint32_t colourOf(std::span<const uint8_t> bytes) {
  const auto level = [](int stored) { return static_cast<uint32_t>(std::lround(stored % 8 * 255 / 7.0)); };
  return level(bytes[0] / 16) * 65536 + level(bytes[1]) * 256 + level(bytes[0]);
}

TEST(Ham, PixelsAndPaletteChanges) {
  const Bytes palettes[] = {noise(32 + 240 * 6, 1), noise(32 + 240 * 6, 2)};
  const Bytes pixels[] = {noise(240 * 256, 3), noise(240 * 256, 4)};
  using Row = std::tuple<int, uint8_t, int, size_t>; // stored height, interlace, shown height, lines of a page
  for (const auto &[stored, interlace, height, pageLines] :
       {Row{0, 0, 0, 0}, Row{1, 0, 1, 1}, Row{3, 0, 3, 1}, Row{4, 0, 4, 2}, Row{5, 0, 5, 3}, Row{7, 0, 7, 3},
        Row{240, 0, 240, 120}, Row{3, 1, 6, 3}, Row{240, 1, 480, 240}, Row{240, 2, 240, 120}}) {
    SCOPED_TRACE(testing::Message() << stored << " lines, interlace " << int{interlace});
    Bytes file = withBytesAt(withBytesAt(header(stored, interlace), 0x100, palettes[0]), 0x800, palettes[1]);
    file = withBytesAt(withBytesAt(file, 0x1000, pixels[0]), 0x10000, pixels[1]);
    TestViewer window;
    window.open("x.HAM", file);
    std::vector<uint32_t> expected(512 * static_cast<size_t>(height));
    std::array<uint32_t, 256> palette{};
    for (size_t page = 0; page < 2; ++page) {
      const std::span<const uint8_t> block(palettes[page]);
      for (size_t i = 0; i < 16; ++i) palette[i] = colourOf(block.subspan(2 * i, 2));
      for (size_t y = 0; y < pageLines; ++y) {
        for (size_t x = 0; x < 512; ++x) {
          const uint8_t byte = pixels[page][y * 256 + x / 2];
          const size_t index = (2 * y + page) * 512 + x;
          if (index < expected.size()) expected[index] = palette[x % 2 == 0 ? byte / 16 : byte % 16];
        }
        for (size_t k = 2 * y; k < 2 * y + 2; ++k) palette[block[32 + 3 * k]] = colourOf(block.subspan(33 + 3 * k, 2));
      }
    }
    EXPECT_TRUE(window.viewer.frameBits == expected);
    EXPECT_EQ(window.viewer.palette, palette);
    EXPECT_EQ(window.viewer.vramPos, static_cast<int32_t>(pageLines * 256));
    EXPECT_EQ(hamDetails(window.viewer), "Storage mode:\t0\nInterlace:\t" + std::string(interlace == 1 ? "yes" : "no") +
                                             "\nPalette changes:\t2 after each line\n");
    window.open("x.HAM", header(stored, interlace)); // blocks that the file does not hold are zero
    EXPECT_EQ(window.viewer.frameBits, std::vector<uint32_t>(expected.size()));
  }
}

} // namespace
