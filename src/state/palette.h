// The fixed palettes, and the palette stored in picture files.
#pragma once

#include "base/colours.h"
#include "state/viewer_state.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

// A 3-bit level of a picture or palette file (0 to 7) as 0 to 255: round(level * 255 / 7).
uint8_t fileLevel(int level);

// A palette entry of a picture or palette file, two bytes as in the V9938's palette registers: 0 R2 R1 R0 0 B2 B1 B0,
// then 0 0 0 0 0 G2 G1 G0. nullopt if another bit is set.
std::optional<uint32_t> fileColour(uint8_t redBlue, uint8_t green);

// Decodes two-byte entries into `palette`. Stops at the first invalid entry; returns how many are valid. An all-black
// palette is replaced by the standard colours.
size_t takeFileColours(ViewerState &viewer, std::span<const uint8_t> bytes);

// Entries of a palette file, and number of swatches.
inline constexpr uint8_t kShortPaletteEntries = 16;

// Whether the shown picture has a palette of at most kShortPaletteEntries.
bool hasShortPalette(const ViewerState &viewer);

// Writes the 16 standard colours to entries 0 to 15.
void setDefaultPalette(ViewerState &viewer);

// The colours of the SymbOS desktop.
extern const std::array<uint32_t, 16> kSymbosPalette;

// Reads `colourCount` entries from the open file at `paletteFilePos`, which then is the position of the invalid byte,
// or behind the last entry. An invalid entry or an all-black palette gives the standard colours. Entries from
// `colourCount` on keep their value.
void readFilePalette(ViewerState &viewer);
