#include "pixel_art.h"

#include <algorithm>
#include <string>

#include "colour_reduction.h"
#include "expected_colours.h"
#include "font.h"

namespace samples {

namespace {

void drawBoxAround(IndexedPicture &picture, int column, int row, int columns, int rows, std::uint8_t ink) {
  const LineInks inks = plainInk(ink);
  const auto middle = static_cast<std::size_t>(columns - 2);
  std::string top(middle, kBoxAcross);
  std::string bottom = top;
  top = kBoxTopLeft + top + kBoxTopRight;
  bottom = kBoxBottomLeft + bottom + kBoxBottomRight;
  drawText(picture, column * 8, row * 8, top, inks);
  drawText(picture, column * 8, (row + rows - 1) * 8, bottom, inks);
  for (int i = row + 1; i < row + rows - 1; ++i) {
    const char side[] = {kBoxDown};
    drawText(picture, column * 8, i * 8, {side, 1}, inks);
    drawText(picture, (column + columns - 1) * 8, i * 8, {side, 1}, inks);
  }
}

// Black paper under whole cells, so that text keeps to two colours a line.
void drawCellText(IndexedPicture &picture, int column, int row, std::string_view text, const LineInks &inks,
                  int stretch = 1) {
  fillBox(picture, column * 8, row * 8, static_cast<int>(text.size()) * 8 * stretch, 8 * stretch, 1);
  drawText(picture, column * 8, row * 8, text, inks, stretch, stretch);
}

// A tile of 8 x 8: the ink of set bits by line, the paper, the bits.
struct Tile {
  char symbol;
  LineInks inks;
  std::uint8_t paper;
  Glyph bits;
};

const std::array<Tile, 9> kTiles = {{
    {'#', {9, 8, 8, 6, 9, 8, 8, 6}, 1, {0xFE, 0xFE, 0xFE, 0x00, 0xEF, 0xEF, 0xEF, 0x00}},
    {'.', {3, 3, 3, 3, 12, 12, 3, 3}, 12, {0x00, 0x10, 0x00, 0x02, 0x00, 0x00, 0x40, 0x00}},
    {'~', {7, 7, 7, 7, 7, 7, 7, 7}, 4, {0x00, 0x30, 0x49, 0x06, 0x00, 0x18, 0x24, 0xC3}},
    {'T', {3, 3, 3, 2, 2, 2, 6, 6}, 12, {0x3C, 0x7E, 0xDF, 0xFF, 0xEF, 0x7E, 0x18, 0x18}},
    {'o', {11, 11, 10, 10, 10, 10, 10, 10}, 12, {0x00, 0x3C, 0x6E, 0x5E, 0x7E, 0x7E, 0x3C, 0x00}},
    {'@', {6, 6, 11, 11, 15, 15, 4, 4}, 12, {0x3C, 0x7E, 0x5A, 0x3C, 0x7E, 0xBD, 0x3C, 0x66}},
    {'s', {2, 3, 3, 3, 2, 2, 2, 2}, 12, {0x00, 0x18, 0x3C, 0x5A, 0x7E, 0xFF, 0xFF, 0xDB}},
    {'D', {11, 10, 10, 10, 10, 6, 10, 10}, 1, {0x3C, 0x7E, 0xDB, 0xDB, 0xDB, 0xD9, 0xDB, 0xDB}},
    {'K', {15, 15, 11, 11, 10, 10, 10, 10}, 12, {0x38, 0x6C, 0x6C, 0x38, 0x10, 0x1C, 0x10, 0x1C}},
}};

} // namespace

IndexedPicture programListing() {
  IndexedPicture page = blankPicture(256, 192, 4);
  constexpr std::array<std::string_view, 17> kLines = {"10 ' ** CITY BY NIGHT **",
                                                       "20 SCREEN 2:COLOR 15,1,1:CLS",
                                                       "30 FOR X=0 TO 248 STEP 24",
                                                       "40 H=40+INT(RND(1)*90)",
                                                       "50 LINE(X,191-H)-(X+20,191),4,BF",
                                                       "60 FOR Y=196-H TO 180 STEP 10",
                                                       "70 FOR W=X+3 TO X+15 STEP 6",
                                                       "80 C=1:IF RND(1)>.5 THEN C=10",
                                                       "90 LINE(W,Y)-(W+2,Y+4),C,BF",
                                                       "100 NEXT W,Y,X",
                                                       "110 CIRCLE(200,32),18,11",
                                                       "120 PAINT(200,32),11",
                                                       "130 PSET(RND(1)*255,RND(1)*60),7",
                                                       "140 IF INKEY$=\"\" THEN 130",
                                                       "150 END",
                                                       "Ok",
                                                       "run"};
  drawBoxAround(page, 0, 0, 32, 4, 7);
  drawText(page, 48, 8, "Saturday Listing 12", plainInk(11));
  drawText(page, 32, 16, "type it in, then save it!", plainInk(14));
  int row = 5;
  for (const std::string_view line : kLines) {
    const std::size_t number = line.find(' ');
    const bool numbered = line[0] >= '1' && line[0] <= '9';
    drawText(page, 0, row * 8, line, plainInk(15));
    if (numbered) drawText(page, 0, row * 8, line.substr(0, number), plainInk(7));
    row += 1;
  }
  const char cursor[] = {kBoxBlock};
  drawText(page, 24, 21 * 8, {cursor, 1}, plainInk(15));
  drawText(page, 0, 23 * 8, "color auto  goto  list  run", plainInk(5));
  return page;
}

IndexedPicture titleScreen(const TruePicture &backdrop) {
  IndexedPicture page = orderToPatternLines(middleLines(backdrop, 192), kDefaultColours);
  drawCellText(page, 1, 1, " STAR COURIER  ", {15, 15, 7, 7, 5, 5, 4, 4}, 2);
  drawCellText(page, 8, 4, " DELIVER OR DIE ", plainInk(10));
  drawCellText(page, 7, 18, " 1 ONE PILOT      ", plainInk(3));
  drawCellText(page, 7, 19, " 2 TWO PILOTS     ", plainInk(3));
  drawCellText(page, 7, 21, " PUSH SPACE KEY   ", {15, 15, 11, 11, 10, 9, 8, 8});
  drawCellText(page, 0, 23, " HI 048250           CREDITS 02 ", plainInk(14));
  return page;
}

IndexedPicture mazeScreen() {
  IndexedPicture page = blankPicture(256, 192, 1);
  constexpr std::array<std::string_view, 21> kMap = {
      "################################", "#......o.....T..~~~~..T........#", "#.####.#####.T..~~~~..T.######.#",
      "#.#..#.#...#.TT..~~~~...#....#.#", "#.#K.#.#.s.#......~~~~..#.oo.#.#", "#.##.#.#...#.####..~~~~.#.oo.#.#",
      "#......##.##.#..#...~~~.#....#.#", "#.TTT........#.o#.T.~~~.##.###.#", "#.TTTT..######..#.TT.~~~.......#",
      "#..TT...#....#.##..T.~~~..####.#", "#.......#.oo.#........~~..#..#.#", "####.####.oo.###.##D###...#.s..#",
      "#..#.#.........#.#....#.T.#..#.#", "#.s..#.#######.#.#.oo.#.T.####.#", "#..#...#..@..#...#.oo.#.TT.....#",
      "#.########.###.###....#..TT..o.#", "#.......~~.....#.######.~~~....#", "#.oo.~~~~~~~.s.#......~~~~~~.s.#",
      "#.oo.~~~~~~~~..##.###.~~~~~~~..#", "#......~~~~..o....#.....~~~...o#", "################################"};
  drawText(page, 0, 0, "SCORE 001240  GOLD 17  FLOOR 03", plainInk(15));
  drawText(page, 0, 8, "LIFE", plainInk(8));
  for (int i = 0; i < 20; ++i) fillBox(page, 40 + i * 8, 9, 7, 6, i < 13 ? 2 : i < 15 ? 10 : 14);
  for (std::size_t row = 0; row < kMap.size(); ++row) {
    for (std::size_t column = 0; column < kMap[row].size(); ++column) {
      const int x = static_cast<int>(column) * 8, y = static_cast<int>(row) * 8 + 24;
      for (const Tile &tile : kTiles) {
        if (tile.symbol != kMap[row][column]) continue;
        fillBox(page, x, y, 8, 8, tile.paper);
        for (int line = 0; line < 8; ++line) {
          const auto n = static_cast<std::size_t>(line);
          for (int bit = 0; bit < 8; ++bit) {
            if (tile.bits[n] >> (7 - bit) & 1) setPixel(page, x + bit, y + line, tile.inks[n]);
          }
        }
      }
    }
  }
  return page;
}

IndexedPicture paletteChart() {
  IndexedPicture chart = blankPicture(256, 212, 14);
  for (int y = 0; y < 212; ++y) {
    for (int x = 0; x < 256; ++x) {
      if (orderedThreshold(x, y) < y / 4) setPixel(chart, x, y, 15);
    }
  }
  fillBox(chart, 0, 0, 256, 22, 4);
  drawShadedText(chart, 28, 7, "THE 16 DEFAULT COLOURS", plainInk(15), 1);
  for (int i = 0; i < 16; ++i) {
    const int x = 8 + i % 4 * 61, y = 29 + i / 4 * 45;
    const auto ink = static_cast<std::uint8_t>(i);
    const std::string number = std::to_string(i);
    fillBox(chart, x + 3, y + 3, 56, 40, 1);
    fillBox(chart, x, y, 56, 40, ink);
    drawFrame(chart, x, y, 56, 40, 15);
    const bool dark = i < 2 || i == 4 || i == 6 || i == 12;
    drawText(chart, x + 28 - static_cast<int>(number.size()) * 8, y + 12, number, plainInk(dark ? 15 : 1), 2, 2);
  }
  return chart;
}

IndexedPicture wireGlobe() {
  IndexedPicture screen = blankPicture(512, 212, 0);
  for (int y = 0; y < 212; y += 2) fillBox(screen, 0, y, 512, 1, 1);
  constexpr int kSteps = 96;
  constexpr double kRadius = 88;
  for (int line = 0; line < 24; ++line) {
    int lastX = 0, lastY = 0;
    bool lastInFront = false;
    for (int step = 0; step <= kSteps; ++step) {
      // Twelve meridians, then eleven parallels.
      const bool meridian = line < 12;
      const double turn = meridian ? line / 24.0 : static_cast<double>(step) / kSteps;
      const double rise = meridian ? static_cast<double>(step) / kSteps : (line - 18) / 24.0;
      const double x = sineOfTurns(rise + 0.25) * sineOfTurns(turn);
      const double y = sineOfTurns(rise);
      const double z = sineOfTurns(rise + 0.25) * sineOfTurns(turn + 0.25);
      const double tilted = y * 0.90 + z * 0.436, depth = z * 0.90 - y * 0.436;
      const int across = floorToInt(330 + x * kRadius * 2), down = floorToInt(108 - tilted * kRadius);
      if (step > 0) {
        const bool front = depth > 0 && lastInFront;
        drawLine(screen, lastX, lastY, across, down, front ? 3 : 2);
        if (front) drawLine(screen, lastX + 1, lastY, across + 1, down, 3);
      }
      lastX = across;
      lastY = down;
      lastInFront = depth > 0;
    }
  }
  drawFrame(screen, 2, 1, 508, 210, 3);
  fillBox(screen, 4, 2, 504, 13, 2);
  drawText(screen, 16, 5, "ORBITAL SURVEY  *  STATION 7  *  LINK OK", plainInk(0), 1, 1);
  constexpr std::array<std::string_view, 8> kReadings = {"LAT  +35 41", "LON +139 46", "ALT  402 KM", "VEL 7.66 KS",
                                                         "SUN    0.82", "BAT    97 %", "TMP   -41 C", "RDY > _"};
  for (std::size_t i = 0; i < kReadings.size(); ++i) {
    drawText(screen, 16, 26 + static_cast<int>(i) * 13, kReadings[i], plainInk(3));
  }
  drawFrame(screen, 12, 140, 136, 60, 2);
  int before = 170;
  for (int x = 0; x < 132; ++x) {
    const int level = 170 - floorToInt(14 * sineOfTurns(x / 44.0) + 10 * sineOfTurns(x / 17.0 + 0.2));
    drawLine(screen, 13 + x, before, 14 + x, level, 3);
    before = level;
  }
  return screen;
}

IndexedPicture windowDesk() {
  IndexedPicture desk = blankPicture(512, 212, 4);
  for (int y = 0; y < 212; ++y) {
    for (int x = 0; x < 512; ++x) {
      if (orderedThreshold(x / 2, y) < y * 64 / 260) setPixel(desk, x, y, 5);
    }
  }
  const auto openWindow = [&desk](int x, int y, int width, int height, std::string_view title, std::uint8_t bar) {
    fillBox(desk, x + 6, y + 3, width, height, 1);
    fillBox(desk, x, y, width, height, 15);
    fillBox(desk, x, y, width, 11, bar);
    drawText(desk, x + 22, y + 2, title, plainInk(15));
    fillBox(desk, x + 4, y + 2, 12, 7, 15);
    fillBox(desk, x + 7, y + 5, 6, 1, 1);
    drawFrame(desk, x, y, width, height, 1);
    fillBox(desk, x + width - 2, y, 2, height, 1);
  };
  fillBox(desk, 0, 0, 512, 11, 15);
  fillBox(desk, 0, 11, 512, 1, 1);
  drawText(desk, 16, 2, "Desk   File   Edit   Paint   Tools                 12:34", plainInk(1));
  openWindow(20, 24, 250, 104, "Letter", 6);
  constexpr std::array<std::string_view, 8> kLetter = {
      "Dear Hanako,",           "", "the disk with the new", "pictures is in the post.", "Mind the palette: it is",
      "in the file this time!", "", "          Best wishes"};
  for (std::size_t i = 0; i < kLetter.size(); ++i) {
    drawText(desk, 34, 40 + static_cast<int>(i) * 10, kLetter[i], plainInk(1));
  }
  openWindow(300, 18, 190, 92, "Sales", 12);
  constexpr std::array<int, 8> kBars = {22, 31, 28, 44, 39, 52, 47, 61};
  for (int i = 0; i < 8; ++i) {
    const int height = kBars[static_cast<std::size_t>(i)];
    const int x = 316 + i * 21;
    fillBox(desk, x + 3, 104 - height + 2, 14, height - 2, 14);
    fillBox(desk, x, 104 - height, 14, height, i % 2 == 0 ? 8 : 10);
    drawFrame(desk, x, 104 - height, 14, height, 1);
  }
  drawLine(desk, 308, 104, 484, 104, 1);
  openWindow(210, 96, 180, 104, "Clock", 13);
  for (int y = -42; y <= 42; ++y) {
    for (int x = -84; x <= 84; ++x) {
      const int square = x * x / 4 + y * y; // pixels are twice as tall as wide
      if (square < 42 * 42) setPixel(desk, 299 + x, 154 + y, square > 39 * 39 ? 1 : 11);
    }
  }
  for (int hour = 0; hour < 12; ++hour) {
    const int x = floorToInt(299.5 + 70 * sineOfTurns(hour / 12.0)),
              y = floorToInt(154.5 - 35 * sineOfTurns(hour / 12.0 + 0.25));
    fillBox(desk, x - 2, y - 1, 5, 3, hour % 3 == 0 ? 6 : 1);
  }
  for (int width = 0; width < 3; ++width) {
    drawLine(desk, 298 + width, 154, 312 + width, 129, 1);
    drawLine(desk, 298 + width, 154, 337 + width, 174, 1);
  }
  drawLine(desk, 299, 154, 252, 142, 8);
  constexpr std::array<std::string_view, 3> kIcons = {"DISK A", "PAINT", "TRASH"};
  for (int i = 0; i < 3; ++i) {
    const int x = 36 + i * 58, y = 150;
    fillBox(desk, x, y, 36, 22, i == 0 ? 14 : i == 1 ? 9 : 7);
    drawFrame(desk, x, y, 36, 22, 1);
    fillBox(desk, x + 8, y + 3, 20, i == 0 ? 7 : 3, 15);
    fillBox(desk, x + 8, y + 12, 20, 8, i == 1 ? 2 : 15);
    drawShadedText(desk, x + 18 - static_cast<int>(kIcons[static_cast<std::size_t>(i)].size()) * 4, 176,
                   kIcons[static_cast<std::size_t>(i)], plainInk(15), 1);
  }
  return desk;
}

IndexedPicture rocketPad(int width) {
  IndexedPicture pad = blankPicture(width, 212, 4);
  const double unit = 256.0 / width;
  for (int y = 0; y < 212; ++y) {
    for (int column = 0; column < width; ++column) {
      const double x = column * unit;
      std::uint8_t ink = y < 60    ? 1
                         : y < 64  ? 4
                         : y < 68  ? 1
                         : y < 128 ? 4
                         : y < 132 ? 5
                         : y < 136 ? 4
                         : y < 166 ? 5
                                   : 7;
      if (y < 100 && !(x > 168 && y < 48) && scatter(floorToInt(x / 2), y / 2, 140) > 0.99) ink = 15;
      if (lengthOf(x - 48, y - 44) < 24) ink = lengthOf(x - 58, y - 38) < 22 ? ink : 11;
      if (y > 176 - 26 * smoothNoise(x / 28, 0, 141)) ink = 13;
      if (y > 184 - 10 * smoothNoise(x / 40, 0, 142)) ink = 6;
      const double across = std::abs(x - 140);
      // The tower of the pad stands left of the rocket.
      if (x > 92 && x < 108 && y > 50 && y < 190) {
        const double brace = std::abs(fractionOf(y / 16.0) * 16 - (x - 92));
        if (x < 94 || x > 106 || brace < 1.2 || fractionOf(y / 16.0) < 0.1) ink = 8;
      }
      if (x >= 108 && x < 128 && (y == 78 || y == 79 || y == 122 || y == 123)) ink = 8;
      const double nose = (y - 22) / 40.0;
      const double body = nose < 0 ? -1 : nose < 1 ? 17 * squareRoot(nose) : y < 168 ? 17 : -1;
      if (across < body) ink = x < 134 ? 15 : x < 148 ? 14 : 5;
      if (across < body && (y < 48 || (y > 130 && y < 140))) ink = x < 144 ? 8 : 6;
      if (y > 96 && y < 130 && across < body && floorToInt(x / 4) % 2 == floorToInt(y / 4.0) % 2 && y < 104) ink = 1;
      if (lengthOf(x - 140, y - 76) < 9)
        ink = lengthOf(x - 137, y - 73) < 3 ? 15 : lengthOf(x - 140, y - 76) < 7 ? 7 : 1;
      const double fin = (y - 136) * 0.62;
      if (y > 136 && y < 178 && across > 16 && across < 17 + fin) ink = x < 140 ? 8 : 6;
      if (y >= 168 && y < 176 && across < 12) ink = 1;
      const double plume = lengthOf((x - 140) / 2.6, y - 196);
      if (y >= 176 && plume + 8 * smoothNoise(x / 7, y / 5.0, 143) < 26)
        ink = plume < 10 ? 15 : plume < 15 ? 11 : plume < 20 ? 10 : 9;
      if (y > 200) ink = y < 203 ? 14 : 1;
      setPixel(pad, column, y, ink);
    }
  }
  const int stretch = width / 256;
  drawText(pad, 176 * stretch, 24, "LIFT-OFF", {15, 15, 11, 11, 10, 10, 9, 9}, stretch, 1);
  drawText(pad, 176 * stretch, 36, "T+00:01", plainInk(7), stretch, 1);
  return pad;
}

Bytes byteColourChart() {
  IndexedPicture chart = blankPicture(256, 212, 0x00);
  for (int x = 0; x < 256; ++x)
    fillBox(chart, x, 0, 1, 20, static_cast<std::uint8_t>(x < 128 ? x / 43 : 3 - (x - 128) / 43));
  drawText(chart, 24, 6, "256 COLOURS  GGGRRRBB", {0xFF, 0xFF, 0xFD, 0xFC, 0xFC, 0xF8, 0xD8, 0xB8});
  for (int byte = 0; byte < 256; ++byte) {
    const int x = byte % 16 * 16, y = 20 + byte / 16 * 12;
    fillBox(chart, x, y, 15, 11, static_cast<std::uint8_t>(byte));
    const bool bright = byte / 32 * 2 + byte / 4 % 8 > 9;
    for (int digit = 0; digit < 2; ++digit) {
      const Glyph &glyph = smallDigitOf(digit == 0 ? byte / 16 : byte % 16);
      for (int row = 0; row < 5; ++row) {
        for (int column = 0; column < 3; ++column) {
          if ((glyph[static_cast<std::size_t>(row)] >> (2 - column) & 1) == 0) continue;
          setPixel(chart, x + 4 + digit * 4 + column, y + 3 + row, bright ? 0x00 : 0xFF);
        }
      }
    }
  }
  return chart.indexes;
}

} // namespace samples
