#include "pixels/symbos_bits.h"

#include "screens/picture_bytes.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

TEST(SymbosBits, EverySize) {                       // low bits in the high half, high bits in the low half
  using Row = std::tuple<int32_t, int32_t, size_t>; // how many bytes the size tells
  for (const auto &[width, height, sorted] : {Row{4, 1, 1}, Row{6, 1, 1}, Row{7, 1, 2}, Row{10, 1, 3}, Row{8, 9, 9},
                                              Row{0, 4, 0}, Row{4, 0, 0}, Row{-4, -4, 0}, Row{8000, 8000, 9}}) {
    Bytes bytes(9, 0x88);
    pairPictureBits(bytes, width, height);
    EXPECT_EQ(bytes, joined({Bytes(sorted, 0xC0), Bytes(9 - sorted, 0x88)})) << width << "x" << height;
  }
}

} // namespace
