#pragma once

// Drawing on pictures of palette indexes. All parts outside the picture are cut off.

#include <array>
#include <string_view>

#include "picture_types.h"

namespace samples {

// Codes of the box characters in texts, beyond the ASCII characters.
constexpr char kBoxAcross = '\x01', kBoxDown = '\x02', kBoxTopLeft = '\x03', kBoxTopRight = '\x04',
               kBoxBottomLeft = '\x05', kBoxBottomRight = '\x06', kBoxBlock = '\x07';

// Inks of the eight lines of a character.
using LineInks = std::array<std::uint8_t, 8>;

LineInks plainInk(std::uint8_t ink);

void setPixel(IndexedPicture &picture, int x, int y, std::uint8_t ink);
void fillBox(IndexedPicture &picture, int x, int y, int width, int height, std::uint8_t ink);
void drawFrame(IndexedPicture &picture, int x, int y, int width, int height, std::uint8_t ink);
void drawLine(IndexedPicture &picture, int x0, int y0, int x1, int y1, std::uint8_t ink);

// Characters of 8 x 8 pixels, stretched; the paper stays.
void drawText(IndexedPicture &picture, int x, int y, std::string_view text, const LineInks &inks, int stretchX = 1,
              int stretchY = 1);

// As above with an outline and a shadow to the lower right.
void drawShadedText(IndexedPicture &picture, int x, int y, std::string_view text, const LineInks &inks,
                    std::uint8_t shadow, int stretchX = 1, int stretchY = 1);

// Rows of characters: ' ' leaves the pixel, '0'-'9' and 'A'-'F' are palette indexes.
void drawSprite(IndexedPicture &picture, int x, int y, const std::vector<std::string_view> &rows);

} // namespace samples
