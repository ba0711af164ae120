#pragma once

// SymbOS graphics: rows of tiles in three variants of records.

#include "picture_types.h"

namespace samples {

enum class SymbosVariant {
  kSplitBits,  // four colours, the low bits of four pixels in the upper half of a byte, the high bits in the lower
  kPairedBits, // four colours, two neighbouring bits a pixel
  kSixteenColours
};

// The tile of a picture. Lines are filled up to whole bytes with index 0.
Bytes symbosTile(const IndexedPicture &picture, SymbosVariant variant);

// A record without pixels: control byte and height field.
Bytes symbosRecord(int control, int height, SymbosVariant variant);

constexpr int kSymbosEnd = 0, kSymbosNewRow = 255, kSymbosMark = 64;

} // namespace samples
