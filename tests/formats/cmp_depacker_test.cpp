#include "pixels/cmp_depacker.h"

#include "screens/picture_bytes.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

namespace {

Bytes unpacked(const Bytes &file) {
  const auto depacker = std::make_unique<CmpDepacker>();
  startCmpDepacker(*depacker, file);
  for (size_t lines = 1; depackCmpLine(*depacker); ++lines) EXPECT_LT(lines, 256U);
  return {depacker->memory.begin() + kCmpOutput,
          depacker->memory.begin() + static_cast<std::ptrdiff_t>(depacker->output)};
}

TEST(CmpDepacker, StreamsByHand) {
  using Row = std::tuple<const char *, Bytes, Bytes>;
  for (const auto &[name, file, expected] :
       {Row{"all zero", {2, 3, 1, 0}, Bytes(6)}, Row{"empty file", {}, Bytes(32768)}, // 256 lines of 256 bytes
        Row{"one mask", {4, 1, 1, 0x80, 0xA0, 7, 9}, {7, 0, 9, 0}},
        Row{"last mask", {60, 1, 1, 0x01, 0x90, 7, 9}, withBytesAt(Bytes(60), 56, {7, 0, 0, 9})},
        Row{"two masks",
            {17, 1, 1, 0xA0, 0x80, 0x81, 1, 2, 3},
            withBytesAt(Bytes(17), 0, joined({{1}, Bytes(15), {2}}))},
        Row{"second control behind the 64th byte",
            {65, 1, 1, 0x01, 0x01, 5, 0x80, 0x80, 6},
            withBytesAt(Bytes(65), 63, {5, 6})},
        Row{"first line repeated", {2, 3, 1, 0x80, 0xC0, 5, 6}, {5, 6, 5, 6, 5, 6}},
        Row{"one difference", {2, 3, 1, 0x80, 0xC8, 5, 6, 3}, {5, 6, 5, 6, 6, 6}},
        Row{"two direct lines", {2, 3, 2, 0x80, 0xC8, 5, 6, 3}, {5, 6, 0, 0, 3, 0}},
        Row{"no line is a difference", {2, 3, 0, 0x80, 0xC8, 5, 6, 3}, {5, 6, 0, 0, 3, 0}},
        Row{"256 bytes a line", {0, 2, 1, 0x80, 0x80, 5}, withBytesAt(withBytesAt(Bytes(512), 0, {5}), 256, {5})},
        Row{"256 lines", {1, 0, 1, 0x80, 0x80, 5}, Bytes(256, 5)}, Row{"full memory", {128, 0, 1, 0}, Bytes(32768)},
        Row{"over full memory", {129, 0, 1, 0}, Bytes(32768)}}) {
    EXPECT_EQ(unpacked(file), expected) << name;
  }
}

// The machine's memory, written down slowly; ends where the input would be read from the output.
Bytes slowlyUnpacked(const Bytes &file) {
  Bytes memory(65536);
  std::copy_n(file.begin(), std::min<size_t>(file.size(), 32768), memory.begin());
  size_t in = 3;
  Bytes out;
  const size_t width = memory[0] == 0 ? 256 : memory[0], lines = memory[1] == 0 ? 256 : memory[1], direct = memory[2];
  const auto takeMasks = [&] {
    const int control = memory[in++];
    for (size_t i = 0; i < 8; ++i) memory[0x7EF8 + i] = (control << i & 0x80) != 0 ? memory[in++] : uint8_t{0};
  };
  takeMasks();
  for (size_t n = 0; n < width * lines && n < 32768; ++n) {
    const bool stored = (memory[0x7EF8 + n / 8 % 8] << n % 8 & 0x80) != 0;
    uint8_t byte = stored ? memory[in++] : uint8_t{0};
    if (n % 64 == 63) takeMasks(); // before the byte goes into the line buffer
    if (in > 0x8000) break;
    uint8_t &above = memory[0x7F00 + n % width];
    if (direct != 0 && n / width >= direct) byte ^= above;
    above = byte;
    out.push_back(byte);
  }
  return out;
}

TEST(CmpDepacker, InputRunsIntoTheMaskTableAndTheLineBuffer) {
  using Row = std::tuple<uint8_t, uint8_t, uint8_t, uint8_t>; // bytes, lines, direct lines, bits set in every byte
  for (const auto &[width, lines, direct, dense] :
       {Row{128, 212, 1, 0}, Row{128, 0, 1, 0xFF}, Row{128, 0, 0, 0xFE}, Row{0, 128, 1, 0xF7}, Row{0, 0, 255, 0xFF},
        Row{127, 255, 9, 0xEF}, Row{100, 0, 3, 0xFF}, Row{5, 9, 2, 0x11}, Row{255, 127, 254, 0xFF}}) {
    for (uint32_t start = 0; start < 9; ++start) {
      Bytes file = noise(start % 2 == 0 ? 40000 : 32600, start);
      for (uint8_t &byte : file) byte |= dense;
      file[0] = width, file[1] = lines, file[2] = direct;
      const Bytes expected = slowlyUnpacked(file);
      Bytes got = unpacked(file);
      EXPECT_GE(got.size(), expected.size());
      got.resize(expected.size());
      EXPECT_TRUE(got == expected) << int{width} << "x" << int{lines} << " " << int{direct} << ", " << start;
    }
  }
}

TEST(CmpDepacker, EveryShortString) {
  const size_t longest = std::getenv("KORILAN_LONG") != nullptr ? 3 : 2;
  for (const Bytes &header : {Bytes{2, 2, 1}, Bytes{}}) {
    for (size_t length = 0; length <= (header.empty() ? 1 : longest); ++length) { // without one up to 64 KB come out
      for (size_t number = 0; number < size_t{1} << 8 * length; ++number) {
        Bytes file = header;
        for (size_t i = 0; i < length; ++i) file.push_back(static_cast<uint8_t>(number >> 8 * i));
        const size_t size = unpacked(file).size();
        ASSERT_EQ(size,
                  header.empty() ? (length == 0 || number == 0 ? 32768 : std::min<size_t>(number * 256, 32768)) : 4)
            << number;
      }
    }
  }
}

} // namespace
