#include "font.h"

namespace samples {

namespace {

// Eight lines from the top, a byte each; the highest bit is the left pixel.
constexpr std::string_view kLetters = " ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.,:!-=\"/";
constexpr std::array<std::uint64_t, kLetters.size()> kGlyphs = {
    0x0000000000000000, // blank
    0x386CC6C6FEC6C600, // A
    0xFCC6C6FCC6C6FC00, // B
    0x3C66C0C0C0663C00, // C
    0xF8CCC6C6C6CCF800, // D
    0xFEC0C0F8C0C0FE00, // E
    0xFEC0C0F8C0C0C000, // F
    0x3E60C0CEC6663E00, // G
    0xC6C6C6FEC6C6C600, // H
    0x7E18181818187E00, // I
    0x1E060606C6C67C00, // J
    0xC6CCD8F0D8CCC600, // K
    0xC0C0C0C0C0C0FE00, // L
    0xC6EEFED6C6C6C600, // M
    0xC6E6F6DECEC6C600, // N
    0x7CC6C6C6C6C67C00, // O
    0xFCC6C6FCC0C0C000, // P
    0x7CC6C6C6DACC7600, // Q
    0xFCC6C6FCD8CCC600, // R
    0x7CC6C07C06C67C00, // S
    0x7E18181818181800, // T
    0xC6C6C6C6C6C67C00, // U
    0xC6C6C6C66C381000, // V
    0xC6C6C6D6FEEEC600, // W
    0xC66C3838386CC600, // X
    0x6666663C18181800, // Y
    0xFE060C3860C0FE00, // Z
    0x7CC6CED6E6C67C00, // 0
    0x1838781818187E00, // 1
    0x7CC6061C70C0FE00, // 2
    0x7CC6063C06C67C00, // 3
    0x1C3C6CCCFE0C0C00, // 4
    0xFEC0FC0606C67C00, // 5
    0x3C60C0FCC6C67C00, // 6
    0xFE060C1830303000, // 7
    0x7CC6C67CC6C67C00, // 8
    0x7CC6C67E060C7800, // 9
    0x0000000000181800, // .
    0x0000000000181830, // ,
    0x0018180018180000, // :
    0x1818181818001800, // !
    0x0000007E00000000, // -
    0x00007E007E000000, // =
    0x6666440000000000, // "
    0x0204081020408000, // /
};

} // namespace

void fillBox(IndexedPicture &picture, int left, int top, int width, int height, std::uint8_t ink) {
  for (int y = std::max(top, 0); y < std::min(top + height, picture.height); ++y) {
    for (int x = std::max(left, 0); x < std::min(left + width, picture.width); ++x) picture.at(x, y) = ink;
  }
}

void drawText(IndexedPicture &picture, int left, int top, std::string_view text, std::uint8_t ink, int across,
              int down) {
  for (const char letter : text) {
    const std::size_t number = kLetters.find(letter);
    const std::uint64_t glyph = number < kGlyphs.size() ? kGlyphs[number] : 0;
    for (int pixel = 0; pixel < 64; ++pixel) {
      if ((glyph >> (63 - pixel) & 1) == 0) continue;
      fillBox(picture, left + pixel % 8 * across, top + pixel / 8 * down, across, down, ink);
    }
    left += 8 * across;
  }
}

} // namespace samples
