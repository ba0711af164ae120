#include "pixels/g9b_depacker.h"

#include "formats/g9b_stream.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <span>
#include <tuple>

namespace {

constexpr size_t kGuard = 4;
constexpr uint8_t kGuardByte = 0xEE;

TEST(G9bDepacker, Codes) {
  using Row = std::tuple<const char *, Bytes, int, size_t, Bytes>; // packed, blocks, room, unpacked
  const auto block = [] { return G9bStream{}.block(); };
  for (const auto &[name, packed, blocks, room, expected] :
       {Row{"bit by bit: literal, end", {9, 9, 0x6A, 'A', 0xAA, 0xAA, 0xAA, 0x80}, 1, 5, {'A'}},
        Row{"bit by bit: literal, two more of it", {9, 9, 0x40, 'A', 0}, 1, 3, {'A', 'A', 'A'}},
        Row{"bit by bit: offset of 11 bits", {9, 9, 0x44, 'A', 0x80}, 1, 3, {'A', 0, 0}},
        Row{"end alone", block().end().bytes, 1, 5, {}},
        Row{"copy of two", block().literals({1, 2, 3}).copy(2, 2).end().bytes, 1, 9, {1, 2, 3, 1, 2}},
        Row{"copy overlaps", block().literals({1, 2}).copy(5, 1).end().bytes, 1, 9, {1, 2, 1, 2, 1, 2, 1}},
        Row{"copies of 3 and 4",
            block().literals({5}).copy(3, 0).literals({6}).copy(4, 0).end().bytes,
            1,
            20,
            {5, 5, 5, 5, 6, 6, 6, 6, 6}},
        Row{"room ends in a copy", block().literals({1, 2}).copy(65536, 1).end().bytes, 1, 5, {1, 2, 1, 2, 1}},
        Row{"room ends at a literal", block().literals({1, 2, 3}).end().bytes, 1, 2, {1, 2}},
        Row{"source before the start", block().literals({7}).copy(4, 2).end().bytes, 1, 9, {7, 0, 0, 7, 0}},
        Row{"second block goes on", block().literals({7, 8}).end().block().copy(2, 1).end().bytes, 2, 9, {7, 8, 7, 8}},
        Row{"one block of two", block().literals({7}).end().block().literals({8}).end().bytes, 1, 9, {7}},
        Row{"no such block", block().literals({7}).end().bytes, 3, 9, {7}},
        Row{"input ends in a literal", {9, 9, 0x00, 1, 2}, 1, 9, {1, 2}},
        Row{"input ends in a length", {9, 9, 0x7F, 1, 0xFF}, 1, 9, {1}},
        Row{"input ends before an offset", {9, 9, 0x40, 1}, 1, 9, {1}}}) {
    SCOPED_TRACE(name);
    Bytes input = packed;
    input.shrink_to_fit();
    Bytes memory(room + 2 * kGuard, kGuardByte);
    std::fill_n(memory.begin() + kGuard, room, uint8_t{0});
    G9bDepacker depacker{.source = 0, .written = 0};
    for (int i = 0; i < blocks; ++i) depackG9bBlock(depacker, input, std::span(memory).subspan(kGuard, room));
    EXPECT_EQ(depacker.written, expected.size());
    Bytes whole(memory.size(), kGuardByte);
    std::fill_n(whole.begin() + kGuard, room, uint8_t{0});
    std::copy(expected.begin(), expected.end(), whole.begin() + kGuard);
    EXPECT_EQ(memory, whole);
  }
}

TEST(G9bDepacker, EveryLengthAndOffset) {
  Bytes start(2048);
  for (size_t i = 0; i < start.size(); ++i) start[i] = static_cast<uint8_t>(i * 7 + i / 256);
  std::vector<std::pair<unsigned, unsigned>> copies; // length, offset
  for (unsigned offset = 0; offset < 2048; ++offset) copies.push_back({2 + offset % 3, offset});
  for (unsigned length = 2; length <= 65536; length += 1 + length / 9) copies.push_back({length, length % 2048});
  copies.push_back({65536, 2047});
  for (const auto &[length, offset] : copies) {
    const Bytes packed = G9bStream{}.block().literals(start).copy(length, offset).end().bytes;
    Bytes expected = start;
    for (unsigned i = 0; i < length; ++i) expected.push_back(expected[expected.size() - offset - 1]);
    expected.push_back(0); // room for more
    Bytes unpacked(expected.size());
    G9bDepacker depacker{.source = 0, .written = 0};
    depackG9bBlock(depacker, packed, unpacked);
    ASSERT_TRUE(depacker.written == expected.size() - 1 && unpacked == expected) << length << " from " << offset;
    ASSERT_EQ(depacker.source, packed.size()) << length << " from " << offset;
  }
}

TEST(G9bDepacker, EveryShortString) {
  const size_t longest = std::getenv("KORILAN_LONG") != nullptr ? 3 : 2;
  for (size_t length = 0; length <= longest; ++length) {
    for (size_t number = 0; number < size_t{1} << 8 * length; ++number) {
      Bytes packed{0, 0, 0}; // the count and the length of a block
      for (size_t i = 0; i < length; ++i) packed.push_back(static_cast<uint8_t>(number >> 8 * i));
      std::array<uint8_t, 7 + 2 * kGuard> memory;
      memory.fill(kGuardByte);
      G9bDepacker depacker;
      for (int block = 0; block < 2; ++block) depackG9bBlock(depacker, packed, std::span(memory).subspan(kGuard, 7));
      ASSERT_LE(depacker.written, 7u) << number;
      for (size_t i = 0; i < kGuard; ++i) ASSERT_EQ(memory[i] & memory[kGuard + 7 + i], kGuardByte) << number;
    }
  }
}

} // namespace
