#include "pixels/symbos_bits.h"

#include "screens/picture_bytes.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

TEST(SymbosBits, EveryByteAndEverySize) { // low bits in the high half, high bits in the low half
  for (uint32_t value = 0; value < 256; ++value) {
    Bytes byte{static_cast<uint8_t>(value)};
    pairPictureBits(byte, 4, 1);
    for (uint32_t n = 0; n < 4; ++n) {
      const uint32_t low = value >> (7 - n) & 1, high = value >> (3 - n) & 1;
      ASSERT_EQ(byte[0] >> (6 - 2 * n) & 3U, 2 * high + low) << value << " " << n;
    }
  }

  using Row = std::tuple<int32_t, int32_t, size_t>; // how many bytes the size tells
  for (const auto &[width, height, sorted] :
       {Row{4, 1, 1}, Row{6, 1, 1}, Row{7, 1, 2}, Row{10, 1, 3}, Row{18, 1, 5}, Row{8, 3, 6}, Row{8, 9, 9},
        Row{0, 4, 0}, Row{4, 0, 0}, Row{-4, -4, 0}, Row{8000, 8000, 9}}) {
    Bytes bytes(9, 0x88);
    pairPictureBits(bytes, width, height);
    EXPECT_EQ(bytes, joined({Bytes(sorted, 0xC0), Bytes(9 - sorted, 0x88)})) << width << "x" << height;
  }
}

} // namespace
