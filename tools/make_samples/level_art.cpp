#include "level_art.h"

#include <string>

#include "colour_reduction.h"
#include "font.h"
#include "shading.h"

namespace samples {

namespace {

// A figure in ' ' nothing, 'a' lower layer, 'b' upper layer, 'c' both, and the colours of its layers.
struct Figure {
  std::array<std::string_view, 16> rows;
  std::uint8_t colour, overColour;
};

constexpr std::array<Figure, 8> kFigures = {{
    {{"     cccccc     ", "    cccccccc    ", "    cbbbbbbc    ", "   cbabbbbabc   ", "    bbbbbbbb    ",
      "     bbaabb     ", "      bbbb      ", "   aaaaaaaaaa   ", "  aaaaccccaaaa  ", "  aa aaccaa aa  ",
      "  bb aaaaaa bb  ", "     cccccc     ", "     aaaaaa     ", "    aaa  aaa    ", "    aa    aa    ",
      "   ccc    ccc   "},
     4,
     9},
    {{"     bbbbbb     ", "   bbaaaaaabb   ", "  baaaaaaaaaab  ", "  baccaaaaccab  ", " baaccaaaaccaab ",
      " baaaaaaaaaaaab ", " baaaacccaaaaab ", " baaaacccaaaaab ", " baaaaaaaaaaaab ", " baaaccccccaaab ",
      " baaaccccccaaab ", " baaaaaaaaaaaab ", " baaaaaaaaaaaab ", " baabaaabaaabab ", "  bb bbb bbb b  ",
      "                "},
     2,
     8},
    {{"                ", "      aaaa      ", "    aaccccaa    ", "   accbbbbcca   ", "  acbbbaabbbca  ",
      "  acbbaaaabbca  ", "  acbbaabbbbca  ", "  acbbbaabbbca  ", "  acbbbbaabbca  ", "  acbbbbaabbca  ",
      "  acbbaaaabbca  ", "  acbbbaabbbca  ", "   accbbbbcca   ", "    aaccccaa    ", "      aaaa      ",
      "                "},
     8,
     10},
    {{"                ", "   bbb    bbb   ", "  bacab  baaab  ", " baccaabbaaaaab ", " bacaaaaaaaaaab ",
      " baaaaaaaaaaaab ", " baaaaaaaaaaaab ", "  baaaaaaaaaab  ", "  baaaaaaaaaab  ", "   baaaaaaaab   ",
      "    baaaaaab    ", "     baaaab     ", "      baab      ", "       bb       ", "                ",
      "                "},
     8,
     6},
    {{"       bb       ", "      bccb      ", "     bccccb     ", "    baaccccb    ", "   baaaacccbb   ",
      "  baaaaaabbbbb  ", " bbbbbbbbbbbbbb ", " baaaaabbcccccb ", "  baaaabbccccb  ", "  baaaabbccccb  ",
      "   baaabbcccb   ", "    baabbccb    ", "    baabbccb    ", "     babbcb     ", "      bbbb      ",
      "       bb       "},
     5,
     7},
    {{"    bbbb        ", "   b    b       ", "  b  aa  b      ", "  b a  a b      ", "  b  aa  b      ",
      "   b    b       ", "    bbbb        ", "     aa         ", "     ab         ", "     aa         ",
      "     aaaab      ", "     aa         ", "     aaaaab     ", "     aa  b      ", "     aa         ",
      "                "},
     10,
     11},
    {{"      bbb       ", "     b   b      ", "         b      ", "     bbbb       ", "    aaaaaa      ",
      "  aaaaaaaaaa    ", " aacaaaaaaaaa   ", " accaaaaaaaaa   ", "aacaaaaaaaaaaa  ", "aaaaaaaaaaaaaa  ",
      "aaaaaaaaaaaaaa  ", "aaaaaaaaaaaaca  ", " aaaaaaaaaacc   ", " aaaaaaaaaaaa   ", "  aaaaaaaaaa    ",
      "    aaaaaa      "},
     4,
     10},
    {{"        a       ", "    a  aa   a   ", "   aa aaaa aa   ", "   aaaabbaaaa   ", " a aabbbbbbaa  a",
      " aaaabbccbbaaaa ", "  aabbccccbbaa  ", " aabbccccccbbaa ", "aaabbccccccbbaaa", " aabbccccccbbaa ",
      "  aabbccccbbaa  ", " aaaabbccbbaaaa ", " a aabbbbbbaa a ", "   aaaabbaaaa   ", "    aa aa  aa   ",
      "    a   a   a   "},
     8,
     11},
}};

// The colours of both layers for the variants of a figure.
constexpr std::array<std::array<std::uint8_t, 2>, 6> kRepaints = {{{0, 0}, {0, 0}, {2, 12}, {13, 9}, {5, 10}, {14, 4}}};

LayeredSprite spriteOf(const Figure &figure, bool mirrored, int turn) {
  LayeredSprite sprite;
  for (std::size_t line = 0; line < 16; ++line) {
    int bits = 0, overBits = 0;
    for (std::size_t x = 0; x < 16; ++x) {
      const char cell = figure.rows[line][mirrored ? 15 - x : x];
      bits = bits * 2 + (cell == 'a' || cell == 'c');
      overBits = overBits * 2 + (cell == 'b' || cell == 'c');
    }
    sprite.bits[line] = static_cast<std::uint16_t>(bits);
    sprite.overBits[line] = static_cast<std::uint16_t>(overBits);
    const auto &repaint = kRepaints[static_cast<std::size_t>(turn)];
    sprite.colours[line] = repaint[0] == 0 ? figure.colour : repaint[0];
    sprite.overColours[line] = repaint[1] == 0 ? figure.overColour : repaint[1];
  }
  return sprite;
}

// A tile of one material with two inks a line.
void drawTile(IndexedPicture &tiles, int column, int row, int kind, int variant) {
  const int left = column * 8, top = row * 8;
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      const bool grain = scatter(left + x, top + y, static_cast<std::uint32_t>(300 + kind)) < 0.12 + 0.1 * variant;
      std::uint8_t ink = 0;
      switch (kind) {
      case 0: ink = y % 4 == 3 || (x + y / 4 * 4) % 8 == variant * 2 ? 1 : y % 4 == 0 ? 9 : 8; break; // bricks
      case 1: ink = y < 2 + (x * 5 + variant * 3) % 4 / 2 ? 3 : grain ? 6 : 7; break;                 // turf
      case 2: ink = (x + y * (1 + variant)) % 8 < 2 ? 5 : 4; break;                                   // water
      case 3: ink = x == 0 || y == 0 ? 15 : x == 7 || y == 7 ? 14 : grain ? 14 : 13; break;           // stone
      case 4: ink = x == 2 || x == 5 ? 10 : y == 3 + variant % 3 ? 10 : 0; break;                     // ladders
      case 5: ink = (x - 4) * (x - 4) + (y - 4) * (y - 4) < 6 + variant * 3 ? 10 : 0; break;          // coins
      case 6: ink = y >= 7 - (x < 4 ? x : 7 - x) * (4 + variant) / 2 ? 14 : 0; break;                 // spikes
      default: ink = grain ? 15 : 0; break;                                                           // stars
      }
      setPixel(tiles, left + x, top + y, ink);
    }
    // No line may have more than two inks.
    const auto first = tiles.indexes.begin() + (top + y) * 256 + left;
    std::uint8_t other = first[0];
    for (int x = 0; x < 8; ++x) {
      if (first[x] == first[0]) continue;
      if (other == first[0]) other = first[x];
      first[x] = other;
    }
  }
}

} // namespace

const Palette kLevelPalette = {{{0, 0, 0},
                                {1, 1, 2},
                                {1, 4, 1},
                                {3, 6, 2},
                                {1, 2, 5},
                                {3, 5, 7},
                                {3, 2, 1},
                                {5, 3, 2},
                                {5, 2, 1},
                                {7, 4, 2},
                                {7, 6, 2},
                                {7, 7, 5},
                                {2, 3, 2},
                                {3, 3, 4},
                                {5, 5, 5},
                                {7, 7, 7}}};

IndexedPicture levelTiles() {
  IndexedPicture tiles = blankPicture(256, 64, 0);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 32; ++column) drawTile(tiles, column, row, column / 4, (column + row) % 4);
  }
  constexpr LineInks kLetterInks = {11, 11, 10, 10, 9, 9, 8, 8};
  for (int character = 0; character < 96; ++character) {
    drawText(tiles, character % 32 * 8, 32 + character / 32 * 8, std::string(1, static_cast<char>(' ' + character)),
             kLetterInks);
  }
  for (int column = 0; column < 32; ++column) {
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        setPixel(tiles, column * 8 + x, 56 + y, orderedThreshold(x, y) < column * 2 ? 5 : 4);
      }
    }
  }
  return tiles;
}

IndexedPicture statusBorder() {
  IndexedPicture border = blankPicture(256, 40, 4);
  for (int y = 0; y < 40; ++y) fillBox(border, 0, y, 256, 1, y < 2 || y > 37 ? 14 : y % 2 == 0 ? 4 : 5);
  for (int x = 0; x < 256; x += 8) {
    fillBox(border, x, 0, 4, 3, 15);
    fillBox(border, x, 37, 4, 3, 15);
  }
  constexpr std::array<std::array<int, 2>, 3> kBoxes = {{{6, 76}, {88, 84}, {178, 72}}};
  for (const auto &box : kBoxes) {
    fillBox(border, box[0], 6, box[1], 28, 1);
    drawFrame(border, box[0], 6, box[1], 28, 15);
    drawFrame(border, box[0] + 1, 7, box[1] - 2, 26, 14);
  }
  drawText(border, 12, 10, "SCORE", plainInk(7));
  drawText(border, 12, 22, "0012850", {15, 15, 11, 11, 10, 10, 9, 9});
  drawText(border, 94, 10, "ENERGY", plainInk(7));
  for (int x = 0; x < 72; ++x) {
    const std::uint8_t ink = x < 18 ? 8 : x < 36 ? 10 : x < 52 ? 3 : 12;
    fillBox(border, 94 + x, 22, x % 6 == 5 ? 0 : 1, 7, ink);
  }
  drawText(border, 184, 10, "LIVES", plainInk(7));
  for (int life = 0; life < 4; ++life) {
    drawSprite(
        border, 184 + life * 14, 21,
        {" 88   88 ", "8998 8888", "8988888888", "888888888", " 8888888 ", "  88888  ", "   888   ", "    8    "});
  }
  drawText(border, 229, 10, "x4", plainInk(15));
  return border;
}

std::vector<LayeredSprite> levelFigures() {
  std::vector<LayeredSprite> sprites;
  for (std::size_t n = 0; n < kSpriteCount; ++n) {
    const int turn = static_cast<int>(n / kFigures.size());
    sprites.push_back(spriteOf(kFigures[n % kFigures.size()], turn % 2 == 1, turn));
  }
  return sprites;
}

std::vector<LayeredSprite> letterSprites() {
  constexpr std::string_view kSigns = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789!?.,:-+*/=";
  constexpr std::array<std::uint8_t, 16> kLetterColours = {7, 7, 7, 7, 5, 5, 5, 5, 4, 4, 4, 4, 4, 4, 1, 1};
  std::vector<LayeredSprite> sprites;
  for (const char sign : kSigns) {
    LayeredSprite sprite;
    for (std::size_t line = 0; line < 16; ++line) {
      const int glyph = glyphOf(sign)[line / 2];
      int bits = 0;
      for (int x = 7; x >= 0; --x) bits = bits * 4 + (glyph >> x & 1) * 3;
      sprite.bits[line] = static_cast<std::uint16_t>(bits);
      // The upper layer is the same a pixel lower and to the right, where both meet in the sum of their bits.
      if (line > 0) sprite.overBits[line] = static_cast<std::uint16_t>(sprite.bits[line - 1] >> 1);
      sprite.colours[line] = kLetterColours[line];
      sprite.overColours[line] = 8;
    }
    sprites.push_back(sprite);
  }
  return sprites;
}

} // namespace samples
