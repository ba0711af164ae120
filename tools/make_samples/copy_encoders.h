#pragma once

// Rectangles of a screen as a COPY command saves them.

#include "picture_types.h"

namespace samples {

// Words of width and height, then the pixels.
Bytes copyFile(int width, int height, const Bytes &pixels);

// Two and four pixels a byte, the left one on top. Lines follow each other in the middle of a byte; the last byte is
// filled up with zeros.
Bytes packRunningNibbles(Bytes indexes);
Bytes packRunningCrumbs(Bytes indexes);

} // namespace samples
