#pragma once

// Pixels as the bytes of the screen modes, and the headers of BLOAD and COPY files.

#include "bytes.h"
#include "picture.h"

namespace samples {

// Video memory from address 0, with that end address in the header.
Bytes bloadFile(const Bytes &memory, std::uint16_t end);

// The same in runs of equal bytes.
Bytes packedBloadFile(const Bytes &memory);

Bytes copyFile(int width, int height, const Bytes &pixels);

// Entries of 2, 4 or 8 bits; the first one is in the highest bits of a byte. The last byte is padded with zeros.
Bytes packBits(const Bytes &entries, int bits);

// Four entries a byte: their low bits in the upper half, their high bits in the lower.
Bytes packSplitBits(const Bytes &entries);

// Two bytes a colour, red and blue before green.
Bytes paletteBytes(const Palette &palette);

// Name, pattern and colour tables of a picture of 256 x 192 with at most two colours in eight neighbouring pixels.
Bytes patternScreen(const IndexedPicture &picture);

// A byte a pixel, GGGRRRBB.
Bytes encodeGrb(const TruePicture &picture);

// Groups of four pixels with a luminance each and the mean chroma of all. Columns beyond the last group are left out.
Bytes encodeYjk(const TruePicture &picture);

// The same with the overlay's entries where it is not see-through.
Bytes encodeYae(const TruePicture &picture, const IndexedPicture &overlay);

} // namespace samples
