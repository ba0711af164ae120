#pragma once

// V9990 pictures.

#include "picture_types.h"

namespace samples {

struct G9bHeader {
  int bitsPerPixel = 8;
  int colourType = 0; // 0x40: GGGRRRBB, 0x80: YJK, 0xC0: YUV
  int width = 0, height = 0;
};

// Palette entries of 5 bits a channel, in place of which the file holds none when it is empty.
using G9bPalette = std::vector<Levels>;

Bytes g9bFile(const G9bHeader &header, const G9bPalette &palette, const Bytes &pixels);
Bytes packedG9bFile(const G9bHeader &header, const G9bPalette &palette, const Bytes &packed);

// Block count, then blocks of so many bytes each, with copies that reach back into earlier blocks.
Bytes packG9b(const Bytes &bytes, std::size_t blockSize);

// Two bytes a pixel, GGGGGRRRRRBBBBB, low byte first; dithered.
Bytes packHighColour(const TruePicture &picture);

} // namespace samples
