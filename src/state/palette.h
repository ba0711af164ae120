// Colours as 0x00RRGGBB words, the fixed palettes, and the palette stored in picture files.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstdint>
#include <optional>

// red * 65536 + green * 256 + blue; each argument 0 to 255.
constexpr uint32_t packColour(uint32_t red, uint32_t green, uint32_t blue) { return red * 65536 + green * 256 + blue; }

// A 3-bit level of a picture or palette file, 0 to 7, as 0 to 255: round(level * 255 / 7).
uint8_t fileLevel(int level);

// Exchanges red and blue: between 0x00RRGGBB and the window system's 0x00BBGGRR. The top byte is dropped.
constexpr uint32_t swapRedBlue(uint32_t word) {
  return (word & 255) * 65536 + (word & 0xFF00) + (word & 0xFF0000) / 65536;
}

// The colour of a palette entry of a picture or palette file: two bytes in V9938 palette register order,
// 0 R2 R1 R0 0 B2 B1 B0, then 0 0 0 0 0 G2 G1 G0. Nothing where another bit is set.
std::optional<uint32_t> fileColour(uint8_t redBlue, uint8_t green);

// Entries that palette files and the swatches have room for.
inline constexpr uint8_t kShortPaletteEntries = 16;

// Whether the picture has a palette, and one that is no longer than that.
bool hasShortPalette(const ViewerState &viewer);

// Writes the 16 standard colours to entries 0 to 15.
void setDefaultPalette(ViewerState &viewer);

// The 16 colours of the SymbOS desktop.
const std::array<uint32_t, 16> &symbosPalette();

// Writes the 16 colours of the SymbOS desktop to entries 0 to 15.
void setSymbosPalette(ViewerState &viewer);

// Reads `colourCount` entries from the open file at `paletteFilePos`, which ends at the byte that was refused or behind
// the last one. A refused entry, or colours that are all black, give the standard colours instead. Entries from
// `colourCount` on keep their value.
void readFilePalette(ViewerState &viewer);
