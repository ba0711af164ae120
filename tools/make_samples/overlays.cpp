#include <algorithm>

#include "pixel_art.h"

namespace samples {

const Palette kOverlayPalette = {{{0, 0, 0},
                                  {0, 0, 1},
                                  {1, 5, 2},
                                  {4, 7, 4},
                                  {1, 1, 5},
                                  {3, 4, 7},
                                  {5, 1, 0},
                                  {3, 7, 7},
                                  {7, 1, 1},
                                  {7, 4, 2},
                                  {7, 6, 1},
                                  {7, 7, 4},
                                  {0, 3, 1},
                                  {7, 3, 5},
                                  {4, 4, 5},
                                  {7, 7, 7}}};

namespace {

const std::vector<std::string_view> kShip = {
    "       FF       ", "       FF       ", "      F77F      ", "      F77F      ", "     FF77FF     ",
    "     FEFFEF     ", "  8  FEFFEF  8  ", "  8 FFEFFEFF 8  ", " FF FFE88EFF FF ", " FFFFFE88EFFFFF ",
    "FFFEFFE88EFFEFFF", "FFE  FEFFEF  EFF", "FE    E55E    EF", "      A  A      ", "      9  9      "};

const std::vector<std::string_view> kRaider = {"  3        3  ", "   2  22  2   ", "    222222    ", "  2222222222  ",
                                               " 222F1221F222 ", "22221122112222", "2 2222222222 2", "2 2   22   2 2",
                                               "   22 33 22   ", "  3        3  "};

const std::vector<std::string_view> kSun = {
    "       A        ", "   A   A   A    ", "    A     A     ", "      AAAA      ", "     ABBBBA     ",
    "AA  ABFFBBBA AA ", "    ABFBBBBA    ", "    ABBBBBBA    ", "     ABBBBA     ", "      AAAA      ",
    "    A     A     ", "   A   A   A    ", "       A        "};

const std::vector<std::string_view> kCloud = {"      FFFF      ", "    FFFFFFFF    ", "   FFFFFFFFFFF  ",
                                              "  FFFFFFFFFFFFE ", " FFFFFFFFFFFFFEE", " FFFFFFFFFFFFEEE",
                                              "  EEEEEEEEEEEEE ", "                ", "   7   7   7    ",
                                              "  7   7   7     ", " 7   7   7      "};

const std::vector<std::string_view> kKnight = {
    "      888       ", "     88888      ", "    FFFFFF      ", "   FEEEEEEF     ", "  FE111111EF    ",
    "  FE1BB1BBEF    ", "  FEBBBBBBEF    ", "  FE1B11B1EF    ", "  FEEBBBBEEF    ", "   FEEEEEEF     ",
    " 44FFFFFFFF44   ", "44444FEEF44444  ", "44 44EEEE44 44  ", "44 44EAAE44 44  ", "BB 44EEEE44 BB  "};

IndexedPicture clearOverlay() { return blankPicture(256, 212, kSeeThrough); }

void drawPanel(IndexedPicture &overlay, int x, int y, int width, int height, std::uint8_t paper) {
  fillBox(overlay, x + 3, y + 3, width, height, 1);
  fillBox(overlay, x, y, width, height, paper);
  drawFrame(overlay, x, y, width, height, 15);
  drawFrame(overlay, x + 2, y + 2, width - 4, height - 4, 14);
}

int centredAt(int middle, std::string_view text, int stretch) {
  return middle - static_cast<int>(text.size()) * 4 * stretch;
}

// A ring one pixel thick.
void drawRing(IndexedPicture &overlay, int middleX, int middleY, int radius, std::uint8_t ink) {
  for (int y = -radius; y <= radius; ++y) {
    for (int x = -radius; x <= radius; ++x) {
      const int square = x * x + y * y;
      if (square <= radius * radius && square > (radius - 1) * (radius - 1))
        setPixel(overlay, middleX + x, middleY + y, ink);
    }
  }
}

} // namespace

IndexedPicture postcardOverlay(std::string_view greeting, std::string_view place) {
  IndexedPicture overlay = clearOverlay();
  for (int ring = 0; ring < 7; ++ring)
    drawFrame(overlay, ring, ring, 256 - 2 * ring, 212 - 2 * ring, ring == 5 ? 6 : 15);
  drawShadedText(overlay, centredAt(128, greeting, 1), 18, greeting, plainInk(15), 1);
  drawShadedText(overlay, centredAt(128, place, 2), 30, place, {15, 11, 11, 10, 10, 9, 9, 8}, 1, 2, 3);
  // A stamp with perforated edges.
  fillBox(overlay, 204, 158, 38, 40, 15);
  for (int i = 0; i < 10; ++i) {
    fillBox(overlay, 205 + i * 4, 157, 2, 2, kSeeThrough);
    fillBox(overlay, 205 + i * 4, 197, 2, 2, kSeeThrough);
    fillBox(overlay, 203, 159 + i * 4, 2, 2, kSeeThrough);
    fillBox(overlay, 241, 159 + i * 4, 2, 2, kSeeThrough);
  }
  fillBox(overlay, 208, 162, 30, 32, 5);
  drawSprite(overlay, 215, 164, kSun);
  fillBox(overlay, 208, 182, 30, 12, 4);
  drawText(overlay, 211, 184, "60c", plainInk(15));
  return overlay;
}

IndexedPicture shooterOverlay(std::string_view score) {
  IndexedPicture overlay = clearOverlay();
  fillBox(overlay, 0, 0, 256, 12, 1);
  fillBox(overlay, 0, 12, 256, 1, 5);
  drawText(overlay, 8, 2, "1UP", plainInk(8));
  drawText(overlay, 40, 2, score, plainInk(15));
  drawText(overlay, 136, 2, "SHIELD", plainInk(7));
  for (int i = 0; i < 8; ++i) fillBox(overlay, 190 + i * 8, 3, 6, 6, i < 5 ? 2 : i < 6 ? 10 : 4);
  for (int row = 0; row < 2; ++row) {
    for (int i = 0; i < 5; ++i) drawSprite(overlay, 26 + i * 30 + row * 13, 26 + row * 18 + i % 2 * 3, kRaider);
  }
  drawSprite(overlay, 112, 180, kShip);
  for (int shot = 0; shot < 3; ++shot) {
    fillBox(overlay, 119, 160 - shot * 34, 2, 9, 11);
    fillBox(overlay, 119, 166 - shot * 34, 2, 4, 9);
  }
  for (int i = 0; i < 2; ++i) drawSprite(overlay, 8 + i * 20, 194, kShip);
  drawShadedText(overlay, 176, 200, "STAGE 04", plainInk(3), 12);
  return overlay;
}

IndexedPicture dialogueOverlay(const std::vector<std::string_view> &lines) {
  IndexedPicture overlay = clearOverlay();
  drawPanel(overlay, 8, 146, 236, 56, 4);
  fillBox(overlay, 15, 153, 34, 38, 1);
  drawFrame(overlay, 15, 153, 34, 38, 10);
  // The portrait in double size.
  IndexedPicture portrait = blankPicture(16, 15, kSeeThrough);
  drawSprite(portrait, 0, 0, kKnight);
  for (int y = 0; y < 15; ++y) {
    for (int x = 0; x < 16; ++x) {
      const std::uint8_t ink = portrait.indexes[static_cast<std::size_t>(y * 16 + x)];
      if (ink != kSeeThrough) fillBox(overlay, 17 + x * 2, 156 + y * 2, 2, 2, ink);
    }
  }
  int y = 154;
  for (const std::string_view line : lines) {
    drawShadedText(overlay, 58, y, line, plainInk(y == 154 ? 11 : 15), 1);
    y += 11;
  }
  drawPanel(overlay, 8, 8, 84, 60, 4);
  drawText(overlay, 28, 15, "TALK", plainInk(15));
  drawText(overlay, 28, 27, "TAKE", plainInk(15));
  drawText(overlay, 28, 39, "SPELL", plainInk(14));
  drawText(overlay, 28, 51, "RUN", plainInk(15));
  drawText(overlay, 16, 15, ">", plainInk(10));
  return overlay;
}

IndexedPicture weatherOverlay(std::string_view town, const std::array<std::string_view, 3> &days) {
  IndexedPicture overlay = clearOverlay();
  fillBox(overlay, 0, 8, 256, 20, 4);
  fillBox(overlay, 0, 7, 256, 1, 15);
  fillBox(overlay, 0, 28, 256, 1, 15);
  drawShadedText(overlay, 10, 14, town, plainInk(15), 1);
  drawShadedText(overlay, 190, 14, "WEATHER", plainInk(10), 1);
  for (int day = 0; day < 3; ++day) {
    const int x = 12 + day * 80;
    drawPanel(overlay, x, 144, 70, 56, day == 1 ? 6 : 4);
    drawText(overlay, x + 8, 151, days[static_cast<std::size_t>(day)], plainInk(11));
    drawSprite(overlay, x + 10, 168, day == 1 ? kCloud : kSun);
    if (day == 2) drawSprite(overlay, x + 14, 173, {kCloud.begin(), kCloud.begin() + 7});
    constexpr std::array<std::string_view, 3> kHighs = {"24", "17", "21"};
    constexpr std::array<std::string_view, 3> kLows = {"15", "12", "13"};
    drawText(overlay, x + 40, 166, kHighs[static_cast<std::size_t>(day)], {15, 15, 11, 11, 10, 10, 9, 9}, 1, 2);
    drawText(overlay, x + 40, 185, kLows[static_cast<std::size_t>(day)], plainInk(7));
  }
  return overlay;
}

IndexedPicture surveyOverlay(std::string_view title, int centreX, int centreY) {
  IndexedPicture overlay = clearOverlay();
  for (int i = 0; i < 256; i += 8) {
    fillBox(overlay, i, 0, 1, i % 32 == 0 ? 8 : 4, 3);
    fillBox(overlay, i, 212 - (i % 32 == 0 ? 8 : 4), 1, 8, 3);
    fillBox(overlay, 0, i, i % 32 == 0 ? 8 : 4, 1, 3);
    fillBox(overlay, 256 - (i % 32 == 0 ? 8 : 4), i, 8, 1, 3);
  }
  drawRing(overlay, centreX, centreY, 22, 10);
  drawRing(overlay, centreX, centreY, 36, 2);
  for (int i = 10; i < 46; ++i) {
    if (i % 4 == 3) continue;
    const std::uint8_t ink = i < 24 ? 10 : 2;
    setPixel(overlay, centreX - i, centreY, ink);
    setPixel(overlay, centreX + i, centreY, ink);
    setPixel(overlay, centreX, centreY - i, ink);
    setPixel(overlay, centreX, centreY + i, ink);
  }
  drawLine(overlay, centreX + 26, centreY - 26, centreX + 40, centreY - 40, 15);
  drawLine(overlay, centreX + 40, centreY - 40, centreX + 84, centreY - 40, 15);
  drawShadedText(overlay, centreX + 42, centreY - 50, "LOCK", plainInk(8), 1);
  drawPanel(overlay, 14, 182, 172, 19, 1);
  drawText(overlay, 22, 188, title, plainInk(3));
  drawShadedText(overlay, 192, 14, "REC", plainInk(8), 1);
  fillBox(overlay, 220, 15, 6, 6, 8);
  return overlay;
}

IndexedPicture swatchOverlay(std::string_view title) {
  IndexedPicture overlay = clearOverlay();
  drawShadedText(overlay, centredAt(128, title, 1), 8, title, plainInk(15), 1);
  for (int i = 0; i < 16; ++i) {
    const int x = 16 + i * 14;
    fillBox(overlay, x + 1, 189, 13, 17, 1);
    fillBox(overlay, x, 188, 13, 17, 15);
    fillBox(overlay, x + 1, 189, 11, 15, static_cast<std::uint8_t>(i));
  }
  for (int i = 0; i < 64; ++i) {
    // A dashed frame, one pixel in two, as the finest mixture of palette and YJK pixels.
    setPixel(overlay, 64 + i * 2, 60, 15);
    setPixel(overlay, 64 + i * 2, 150, 15);
    if (i < 46) {
      setPixel(overlay, 64, 60 + i * 2, 15);
      setPixel(overlay, 191, 60 + i * 2, 15);
    }
  }
  return overlay;
}

} // namespace samples
