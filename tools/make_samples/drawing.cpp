#include "drawing.h"

#include <algorithm>
#include <cstdlib>

#include "font.h"

namespace samples {

LineInks plainInk(std::uint8_t ink) {
  LineInks inks;
  inks.fill(ink);
  return inks;
}

void setPixel(IndexedPicture &picture, int x, int y, std::uint8_t ink) {
  if (x < 0 || y < 0 || x >= picture.width || y >= picture.height) return;
  picture.indexes[static_cast<std::size_t>(y * picture.width + x)] = ink;
}

void fillBox(IndexedPicture &picture, int x, int y, int width, int height, std::uint8_t ink) {
  for (int row = y; row < y + height; ++row) {
    for (int column = x; column < x + width; ++column) setPixel(picture, column, row, ink);
  }
}

void drawFrame(IndexedPicture &picture, int x, int y, int width, int height, std::uint8_t ink) {
  fillBox(picture, x, y, width, 1, ink);
  fillBox(picture, x, y + height - 1, width, 1, ink);
  fillBox(picture, x, y, 1, height, ink);
  fillBox(picture, x + width - 1, y, 1, height, ink);
}

void drawLine(IndexedPicture &picture, int x0, int y0, int x1, int y1, std::uint8_t ink) {
  const int steps = std::max({std::abs(x1 - x0), std::abs(y1 - y0), 1});
  for (int i = 0; i <= steps; ++i) {
    setPixel(picture, x0 + (x1 - x0) * i / steps, y0 + (y1 - y0) * i / steps, ink);
  }
}

void drawText(IndexedPicture &picture, int x, int y, std::string_view text, const LineInks &inks, int stretchX,
              int stretchY) {
  for (const char character : text) {
    const auto &glyph = glyphOf(character);
    for (int row = 0; row < 8; ++row) {
      for (int column = 0; column < 8; ++column) {
        const auto line = static_cast<std::size_t>(row);
        if ((glyph[line] >> (7 - column) & 1) == 0) continue;
        fillBox(picture, x + column * stretchX, y + row * stretchY, stretchX, stretchY, inks[line]);
      }
    }
    x += 8 * stretchX;
  }
}

void drawShadedText(IndexedPicture &picture, int x, int y, std::string_view text, const LineInks &inks,
                    std::uint8_t shadow, int stretchX, int stretchY) {
  const LineInks dark = plainInk(shadow);
  for (int turn = 0; turn < 9; ++turn) {
    drawText(picture, x - 1 + turn % 3, y - 1 + turn / 3, text, dark, stretchX, stretchY);
  }
  drawText(picture, x + stretchX, y + stretchY, text, dark, stretchX, stretchY);
  drawText(picture, x, y, text, inks, stretchX, stretchY);
}

void drawSprite(IndexedPicture &picture, int x, int y, const std::vector<std::string_view> &rows) {
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column) {
      const char digit = rows[row][column];
      if (digit == ' ') continue;
      const int ink = digit <= '9' ? digit - '0' : digit - 'A' + 10;
      setPixel(picture, x + static_cast<int>(column), y + static_cast<int>(row), static_cast<std::uint8_t>(ink));
    }
  }
}

} // namespace samples
