#pragma once

// Writers of the video-memory forms and file forms of the BLOAD screens.

#include <cstddef>
#include <cstdint>

#include "picture_types.h"

namespace samples {

constexpr std::uint8_t kPlainIdentifier = 0xFE;
constexpr std::uint8_t kPackedIdentifier = 0xFD;

// The seven header bytes: identifier, then start, end and execution address, low byte first.
Bytes bloadHeader(std::uint8_t identifier, std::uint16_t start, std::uint16_t end, std::uint16_t execution);

// A plain file: header with start and execution address 0, then the video memory.
Bytes bloadFile(const Bytes &memory, std::uint16_t end);

// A packed file: identifier 0xFD, the end address that of the packed bytes, then the packed memory.
Bytes packedBloadFile(const Bytes &memory);

// Appends a word, low byte first.
void appendWord(Bytes &bytes, int value);

// Copies the bytes to an address of the video memory, which grows with zeros as far as needed.
void placeBytes(Bytes &memory, std::size_t address, const Bytes &bytes);

// Two pixels a byte, the left one in the high nibble (Screens 5 and 7). Even count of indexes.
Bytes packNibbles(const Bytes &indexes);

// Four pixels a byte, the left one in the top bits (Screen 6). Count of indexes a multiple of four.
Bytes packCrumbs(const Bytes &indexes);

// V9938 palette registers: red in bits 6-4 and blue in bits 2-0 of the first byte, green in the second.
Bytes paletteBytes(const Palette &palette);

// Video memory 0x0000-0x37FF of Screens 2 and 4. The picture is 256 x 192 with at most two colours in
// each 8 x 1 line of a cell; a third colour is drawn as the second. Equal cells of one third of the
// screen share a pattern.
Bytes encodePatternScreen(const IndexedPicture &picture);

// GGGRRRBB bytes (Screen 8), the error spread over the neighbours.
Bytes encodeGrb332(const TruePicture &picture);

// Bytes of Screen 12: groups of four pixels with a luminance each and the common J and K. The width
// is a multiple of four.
Bytes encodeYjk(const TruePicture &picture);

// Bytes of Screens 10 and 11: as above with even luminances, and the pixels of the overlay that are not
// kSeeThrough as palette pixels. Both pictures have the same size.
Bytes encodeYae(const TruePicture &picture, const IndexedPicture &overlay);

// Runs of the packed Screen 5 and 7 files: count and value; runs of 128 to 255 bytes in the long form
// 0, count, value; 256 bytes as 0, 0, value.
Bytes packRunLength(const Bytes &bytes);

} // namespace samples
