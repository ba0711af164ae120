#pragma once

// Drawings in palette entries.

#include <string_view>

#include "picture.h"

namespace samples {

// 256 x 212: a field for each of the sixteen entries.
IndexedPicture paletteChart();

// A desk with windows and icons in the default palette.
IndexedPicture desk(int width, int height);

// 256 x 192: a program, two colours in eight neighbouring pixels at most.
IndexedPicture listing();

// See-through but for a caption in the palette's colours and fields of all sixteen entries.
IndexedPicture caption(int width, int height, std::string_view text);

// 512 x 704 in white (0) and black (1), with that picture above the columns.
IndexedPicture page(std::string_view title, const TruePicture &picture);

} // namespace samples
