#pragma once

// Letters of 8 x 8 pixels.

#include <string_view>

#include "picture.h"

namespace samples {

// Sets the pixels of the text; each is a box of `across` x `down` pixels. What is outside the picture is left out.
void drawText(IndexedPicture &picture, int left, int top, std::string_view text, std::uint8_t ink, int across = 1,
              int down = 1);

// What is outside the picture is left out.
void fillBox(IndexedPicture &picture, int left, int top, int width, int height, std::uint8_t ink);

} // namespace samples
