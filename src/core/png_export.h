// The shown picture as a PNG file.
#pragma once

#include "base/file_ops.h"
#include "core/colour_numbers.h"
#include "state/viewer_state.h"

#include <string>

// Whether the view shows the picture's pixels about twice as high as wide.
bool hasTallPixels(const ViewerState &viewer);

// Puts the file, at the picture's own size: indexed if every pixel is a palette entry. Returns what went wrong in
// `put`, or why there is no PNG file of the picture.
std::string putShownPng(ViewerState &viewer, const PutBytes &put);

// The same with the colour numbers that numberPicture() has given.
std::string putShownPng(const ViewerState &viewer, const NumberedPicture &numbered, const PutBytes &put);

// The path for Save as PNG: that of Save as Bitmap with "png".
std::string pngPath(const ViewerState &viewer);

// "Save as PNG": asks before it replaces a file that was not written so since the program's start. A failure shows a
// message with the system's error; the existing file stays whole.
void menuSavePNG_Click(ViewerState &viewer);
