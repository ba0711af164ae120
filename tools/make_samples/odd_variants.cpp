#include <algorithm>
#include <string>

#include "sample_groups.h"

namespace samples {

namespace {

constexpr std::size_t kBody = 7; // of a BLOAD file
constexpr std::size_t kPalette = kBody + 0x7680;
constexpr std::size_t kEvaBlock = 15360;

// Another sample under that name with other bytes from `position` on.
struct Changed {
  const char *name, *original;
  std::size_t position = 0;
  Bytes bytes = {};
};

const Changed kChanged[] = {
    // Only the name differs.
    {"odd/picture.sc5", "COAST.SC5"},
    {"odd/Picture.Sc8", "COAST.SC8"},
    {"odd/Desk.sR7", "DESK.SR7"},
    {"odd/two.dots.SC5", "COAST.SC5"},
    {"odd/\xE6\x97\xA5\xE6\x9C\xAC\xE3\x81\xAE\xE5\x9F\x8E.SC5", "COAST.SC5"}, // "castle of Japan"
    {"odd/ch\xC3\xA2teau \xC3\xA0 voir.SC5", "COAST.SC5"},                     // "castle to look at"
    {"odd/palette_ignored.SC2", "COAST.SC4"},
    {"odd/packed.SC5", "CHART.SR5"},
    {"odd/Clip.ev8", "COAST.EV8"},

    {"odd/end_1234.SC7", "DESK.SC7", 3, {0x34, 0x12}}, // shown: the address is signed
    {"odd/end_69ff.GE5", "COAST.GE5", 3, {0xFF, 0x69}},
    {"odd/end_1401.SCR", "COAST.SCR", 3, {0x01}},
    {"odd/start_0001.SC5", "COAST.SC5", 1, {0x01}},

    {"odd/palette_red_80.SC5", "COAST.SC5", kPalette + 30, {0x80}},  // the default one is shown
    {"odd/palette_fifth_ff.SC6", "COAST.SC6", kPalette + 8, {0xFF}}, // only the first four are read

    {"odd/width_7.GL5", "COAST.GL5", 0, {7}},
    {"odd/width_129.CMP", "CHART.CMP", 0, {129}},
    {"odd/letter_23.PCT", "NEWS.PCT", 23, {'M'}},
    {"odd/version_2.HAM", "WHEEL.HAM", 3, {2}},
    {"odd/compression_2.G9B", "DESK.G9B", 12, {2}},
    {"odd/colour_count_3.G9B", "WHEELGRB.G9B", 7, {3}}, // no palette
    {"odd/mark_65.SGX", "HUES.SGX", 0, {65}},
    {"odd/rate_7.EVA", "SUNSET.EVA", kEvaBlock - 1, {7}},
    {"odd/bad_magic.VID", "COAST.VID", 7, {'1'}},
    {"odd/rate_0.VID", "PLASMA.VID", 10, {0}},
    {"odd/no_frames.VID", "COAST.VID", 11, {0}},
};

// The first bytes of another sample.
struct Shortened {
  const char *name, *original;
  std::size_t size;
};

constexpr Shortened kShortened[] = {
    {"odd/empty.SC5", "COAST.SC5", 0},
    {"odd/short_body.SC5", "COAST.SC5", kBody + 80 * 128},
    {"odd/half_palette.SC5", "COAST.SC5", kPalette + 16},
    {"odd/packed_truncated.SR5", "CHART.SR5", 1000},
    {"odd/short_body.GL5", "COAST.GL5", 4 + 4000},
    {"odd/short_body.DAT", "COAST.DAT", 4 + 100 * 128},
    {"odd/header_only.CMP", "COAST.CMP", 3},
    {"odd/short_body.PCT", "NEWS.PCT", 9000},
    {"odd/header_only.HAM", "WHEEL.HAM", 32},
    {"odd/second_block_missing.G9B", "COASTGRB.G9B", 7000},
    {"odd/cut_in_tile.SGX", "COAST.SGX", 3 + 100 * 60 + 20},
    {"odd/no_colours.TGS", "LETTERS.TGS", 2944},
    {"odd/one_block_and_half.EVA", "SUNSET.EVA", kEvaBlock * 3 / 2},
    {"odd/byte_above_half.EVA", "WHEEL.EVA", kEvaBlock * 5 / 2 + 1},
    {"odd/last_frame_cut.VID", "PLASMA.VID", 512 + 3 * 848 + 400},
};

const Bytes &bytesNamed(const Samples &samples, std::string_view name) {
  return std::find_if(samples.begin(), samples.end(), [&](const auto &sample) { return sample.name == name; })->bytes;
}

} // namespace

void addOddVariants(Samples &samples) {
  for (const Changed &row : kChanged) {
    Bytes bytes = bytesNamed(samples, row.original);
    place(bytes, row.position, row.bytes);
    samples.push_back({row.name, bytes});
  }
  for (const Shortened &row : kShortened) {
    Bytes bytes = bytesNamed(samples, row.original);
    bytes.resize(row.size);
    samples.push_back({row.name, bytes});
  }
  // A cartridge image shares the extension of Screen 12.
  samples.push_back({"odd/cartridge.SCC", {'A', 'B', 0x10, 0x40}});
}

} // namespace samples
