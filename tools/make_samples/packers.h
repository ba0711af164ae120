#pragma once

// Bodies of packed files.

#include "bytes.h"

namespace samples {

// The body of a G9B file: literals and copies in blocks, each of that many bytes of the picture.
Bytes packG9b(const Bytes &bytes, std::size_t blockSize);

// The body of a CMP file: zero bytes are left out. Lines behind the first `directLines` are exclusive-ors with the line
// above; 0: none is.
Bytes packCmp(const Bytes &bytes, std::size_t lineSize, int directLines);

// The body of a PCT file: runs of equal bytes and of literals.
Bytes packPage(const Bytes &bytes);

} // namespace samples
