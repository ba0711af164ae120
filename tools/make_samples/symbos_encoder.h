#pragma once

// SymbOS graphics: rows of tiles in three variants of records.

#include "picture_types.h"

namespace samples {

// The first four are the colours of pictures in four colours.
constexpr ColourWords kSymbosColours = {0xFFFF91, 0x000000, 0xFF9100, 0x910000, 0x00FFFF, 0x000091, 0x9191FF, 0x0000FF,
                                        0xFFFFFF, 0x009100, 0x00FF00, 0xFF00FF, 0xFFFF00, 0x919191, 0xFF9191, 0xFF0000};

enum class SymbosVariant {
  kSplitBits,  // four colours, the low bits of four pixels in the upper half of a byte, the high bits in the lower
  kPairedBits, // four colours, two neighbouring bits a pixel
  kSixteenColours
};

// Four pixels a byte as in the tiles of split bits. Count of indexes a multiple of four.
Bytes packSplitBits(const Bytes &indexes);

// The tile of a picture. Lines are filled up to whole bytes with index 0.
Bytes symbosTile(const IndexedPicture &picture, SymbosVariant variant);

// A record without pixels: control byte and height field.
Bytes symbosRecord(int control, int height, SymbosVariant variant);

constexpr int kSymbosEnd = 0, kSymbosNewRow = 255, kSymbosMark = 64;

} // namespace samples
