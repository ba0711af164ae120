#include "pixels/bload_depacker.h"
#include "pixels/cmp_depacker.h"
#include "pixels/g9b_depacker.h"
#include "pixels/publisher_depacker.h"
#include "screens/picture_bytes.h"

namespace {

using Packed = std::span<const uint8_t>;
using Unpacked = std::span<uint8_t>;
using Depack = size_t (*)(Packed packed, Unpacked unpacked); // returns how many bytes were written

size_t bload(Packed packed, Unpacked unpacked) { return depackBload(packed, unpacked, unpacked.size()); }
size_t bloadOf5(Packed packed, Unpacked unpacked) { return depackBload(packed, unpacked, 5); }

size_t g9b(Packed packed, Unpacked unpacked) {
  G9bDepacker depacker;
  for (int block = 0; block < (packed.empty() ? 0 : packed[0]); ++block) depackG9bBlock(depacker, packed, unpacked);
  return depacker.written;
}

// The whole picture, if there is room for it.
size_t cmp(Packed packed, Unpacked unpacked) {
  const auto depacker = std::make_unique<CmpDepacker>();
  startCmpDepacker(*depacker, packed);
  for (size_t lines = 1; depackCmpLine(*depacker); ++lines) EXPECT_LT(lines, 256U);
  const size_t written = depacker->output - kCmpOutput;
  std::copy_n(depacker->memory.begin() + kCmpOutput, std::min(written, unpacked.size()), unpacked.begin());
  return written;
}

// What is written into a room of zeros, which must stay zero behind it, between bytes that must stay.
Bytes depacked(Depack depack, Packed packed, size_t room) {
  constexpr size_t kGuard = 16;
  Bytes memory = joined({Bytes(kGuard, 0xEE), Bytes(room), Bytes(kGuard, 0xEE)});
  const std::unique_ptr<uint8_t[]> exact(new uint8_t[packed.size()]); // the sanitizer sees a read behind it
  std::copy(packed.begin(), packed.end(), exact.get());
  const size_t written = depack({exact.get(), packed.size()}, Unpacked(memory).subspan(kGuard, room));
  EXPECT_LE(written, room);
  const auto end = memory.begin() + static_cast<std::ptrdiff_t>(kGuard + std::min(written, room));
  EXPECT_EQ(std::count(end, memory.end() - kGuard, 0), memory.end() - kGuard - end);
  EXPECT_EQ(std::count(memory.begin(), memory.begin() + kGuard, 0xEE), 16);
  EXPECT_EQ(std::count(memory.end() - kGuard, memory.end(), 0xEE), 16);
  return {memory.begin() + kGuard, end};
}

TEST(Depackers, StreamsByHand) {
  const Bytes upTo44928 = repeated(351, {255, 0}); // of a page; 127 more reach the bound
  const Depack page = depackPublisherPage;
  using Row = std::tuple<const char *, Depack, Bytes, size_t, Bytes>; // packed, room, unpacked
  for (const auto &[name, depack, packed, room, expected] :
       {Row{"one count", bload, {3, 7}, 3, Bytes(3, 7)}, Row{"escaped", bload, {0, 5, 7}, 9, Bytes(5, 7)},
        Row{"two zeros", bload, {0, 0, 7}, 300, Bytes(256, 7)},
        Row{"input ends before a value", bload, {2, 1, 0, 5}, 9, {1, 1}},
        Row{"input ends before a count", bload, {2, 1, 0}, 9, {1, 1}}, Row{"room ends", bload, {9, 3}, 2, {3, 3}},
        Row{"input ends in literals", page, {0, 7, 3, 1, 2}, 9, {7, 1, 2}},
        Row{"room ends in a run", page, {1, 3, 4, 130, 5}, 4, {3, 4, 5, 5}},
        Row{"size reached", bloadOf5, {2, 1, 3, 2, 2, 3}, 9, {1, 1, 2, 2, 2}},
        Row{"below the size", bloadOf5, {2, 1, 2, 2, 2, 3, 1, 4}, 9, {1, 1, 2, 2, 3, 3}},
        Row{"at the bound", page, joined({upTo44928, {254, 1, 128, 2}}), 50000, joined({Bytes(44928), Bytes(127, 1)})},
        Row{"across it", page, joined({upTo44928, {253, 1, 129, 2, 128, 3}}), 50000,
            joined({Bytes(44928), Bytes(126, 1), {2, 2}})},
        Row{"literal, end", g9b, {1, 9, 9, 0x6A, 'A', 0xAA, 0xAA, 0xAA, 0x80}, 5, {'A'}},
        Row{"offset of 11 bits", g9b, {1, 9, 9, 0x44, 'A', 0x80}, 3, {'A', 0, 0}},
        Row{"no file", cmp, {}, 32768, Bytes(32768)},
        Row{"two masks", cmp, {9, 1, 1, 0xC0, 0x81, 0x80, 1, 2, 3}, 9, {1, 0, 0, 0, 0, 0, 0, 2, 3}},
        Row{"a difference", cmp, {2, 3, 1, 0x80, 0xC8, 5, 6, 3}, 6, {5, 6, 5, 6, 6, 6}},
        Row{"over full memory", cmp, {129, 0, 1, 0}, 32768, Bytes(32768)}}) {
    EXPECT_EQ(depacked(depack, packed, room), expected) << name;
  }
}

// The machine's memory; ends where the input would be read from the output.
Bytes slowCmp(const Bytes &packed) {
  Bytes memory(65536);
  std::copy_n(packed.begin(), std::min<size_t>(packed.size(), 32768), memory.begin());
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

// Nothing is read or written outside the buffers.
TEST(Depackers, EveryShortStringAndNoiseIntoSmallAndLargeRooms) {
  for (const auto &[depack, start] :
       {std::pair<Depack, Bytes>{bload, {}}, {depackPublisherPage, {}}, {g9b, {3, 0, 0}}, {cmp, {2, 2, 1}}}) {
    for (int value = 0; value < 65536; ++value) depacked(depack, joined({start, word(value)}), 4);
    for (const size_t room : {0U, 1U, 7U, 8U, 9U, 5000U}) {
      for (uint32_t seed = 0; seed < 500 && depack != cmp; ++seed) {
        Bytes packed = joined({start, noise(seed, seed)});
        for (size_t i = start.size(); i < packed.size() && seed % 2 == 1; ++i) packed[i] |= packed[i / 2];
        depacked(depack, packed, room);
      }
    }
  }
}

TEST(Depackers, InputOfCmpRunsIntoTheMaskTableAndTheLineBuffer) {
  using Row = std::tuple<uint8_t, uint8_t, uint8_t, uint8_t>; // bytes, lines, direct lines, bits set in every byte
  for (const auto &[width, lines, direct, dense] :
       {Row{128, 212, 1, 0}, Row{128, 0, 1, 0xFF}, Row{128, 0, 0, 0xFE}, Row{0, 128, 1, 0xF7}, Row{0, 0, 255, 0xFF},
        Row{127, 255, 9, 0xEF}, Row{100, 0, 3, 0xFF}, Row{5, 9, 2, 0x11}, Row{255, 127, 254, 0xFF}}) {
    for (uint32_t seed = 0; seed < 9; ++seed) {
      Bytes packed = noise(seed % 2 == 0 ? 40000 : 32600, seed);
      for (uint8_t &byte : packed) byte |= dense;
      packed[0] = width, packed[1] = lines, packed[2] = direct;
      const Bytes expected = slowCmp(packed), got = depacked(cmp, packed, 32768);
      EXPECT_TRUE(got.size() >= expected.size() && std::equal(expected.begin(), expected.end(), got.begin()))
          << int{width} << "x" << int{lines} << " " << int{direct} << ", " << seed;
    }
  }
}

} // namespace
