#include "pixels/packed_bload.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;

// Pairs of a byte and how often it stands, written out.
Bytes runs(const std::vector<std::pair<uint8_t, size_t>> &pairs) {
  Bytes bytes;
  for (const auto &[value, count] : pairs) bytes.insert(bytes.end(), count, value);
  return bytes;
}

TEST(PackedBload, Runs) {
  using Row = std::tuple<const char *, Bytes, size_t, size_t, Bytes>;
  for (const auto &[name, packed, size, capacity, written] :
       {Row{"one count", {3, 7}, 3, 9, runs({{7, 3}})},
        Row{"longest single count", {255, 7}, 255, 300, runs({{7, 255}})},
        Row{"escaped count", {0, 5, 7}, 5, 9, runs({{7, 5}})}, Row{"two zeros", {0, 0, 7}, 256, 300, runs({{7, 256}})},
        Row{"value 0", {2, 0, 0, 1, 0, 1, 9}, 4, 9, runs({{0, 3}, {9, 1}})},
        Row{"size reached", {2, 1, 2, 2, 2, 3}, 4, 9, runs({{1, 2}, {2, 2}})},
        Row{"one byte below the size", {2, 1, 2, 2, 2, 3}, 5, 9, runs({{1, 2}, {2, 2}, {3, 2}})},
        Row{"last run beyond the size", {2, 1, 9, 2, 1, 3}, 3, 99, runs({{1, 2}, {2, 9}})},
        Row{"size looked at after the first run", {2, 1, 2, 2}, 0, 9, runs({{1, 2}})},
        Row{"end of the target", {2, 1, 9, 2, 1, 3}, 20, 5, runs({{1, 2}, {2, 3}})},
        Row{"source ends before a count", {2, 1}, 9, 9, runs({{1, 2}})},
        Row{"source ends before a value", {2, 1, 2}, 9, 9, runs({{1, 2}})},
        Row{"source ends before an escaped count", {2, 1, 0}, 9, 9, runs({{1, 2}})},
        Row{"source ends before an escaped value", {2, 1, 0, 0}, 9, 9, runs({{1, 2}})}}) {
    SCOPED_TRACE(name);
    Bytes unpacked(capacity, 0xEE);
    EXPECT_EQ(depackBload(packed, unpacked, size), written.size());
    Bytes expected = written;
    expected.resize(capacity, 0xEE);
    EXPECT_EQ(unpacked, expected);
  }
}

// No string of up to two bytes holds more than one run, and only two bytes n, b hold one.
TEST(PackedBload, EveryShortStringIntoEverySmallTarget) {
  constexpr size_t kGuard = 4;
  for (size_t length = 0; length <= 2; ++length) {
    for (size_t number = 0; number < size_t{1} << 8 * length; ++number) {
      Bytes packed{static_cast<uint8_t>(number), static_cast<uint8_t>(number >> 8)};
      packed.resize(length);
      packed.shrink_to_fit();
      for (size_t capacity = 0; capacity <= 3; ++capacity) {
        std::array<uint8_t, 3 + 2 * kGuard> memory;
        memory.fill(0xEE);
        auto expected = memory;
        const size_t count = length == 2 ? std::min<size_t>(packed[0], capacity) : 0;
        if (count > 0) std::fill_n(expected.begin() + kGuard, count, packed[1]);
        ASSERT_EQ(depackBload(packed, std::span(memory).subspan(kGuard, capacity), 3), count) << number;
        ASSERT_EQ(memory, expected) << length << " bytes " << number << " into " << capacity;
      }
    }
  }
}

} // namespace
