#pragma once

// Files of the paint and page programs.

#include "picture_types.h"

namespace samples {

// DD-Graph COPY file: size, lines of whole bytes, and the palette at the file offset that the reader computes from
// the half bytes of an odd width.
Bytes datFile(const IndexedPicture &picture, const Palette &palette);

// DD-Graph .CMP file of an even width. The first lines hold their bytes, the others the difference to the line above;
// no direct lines stand for nothing but direct lines.
Bytes cmpFile(const IndexedPicture &picture, int directLines);

// Dynamic Publisher page: header, then runs and literals. Bytes of the picture: 704 lines of 64.
Bytes pctFile(const Bytes &packed);
Bytes packPageRuns(const Bytes &bytes);

// 512 x 704 pixels, index 1 black. The nibbles of each byte are exchanged.
Bytes pageBytes(const IndexedPicture &page);

} // namespace samples
