// Palette files, .PL4 to .PL7 and .PAL: 16 entries as in picture files, see state/palette.h.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <string>
#include <string_view>

// By its extension.
bool isPaletteFile(std::string_view path);

using PaletteFile = std::array<uint8_t, size_t{2} * 16>;

// Returns false if the file is too short or cannot be opened.
bool readPaletteFile(const ViewerState &viewer, const std::string &path, PaletteFile &bytes);

// Decodes the entries that the picture of `colourCount` colours uses. Returns false at the first invalid one.
bool takePalette(ViewerState &viewer, const PaletteFile &bytes, int32_t colourCount);

// If the setting is on and the loaded picture has at most 16 colours, takes the first valid palette file of its name
// beside it. Without one the palette stays.
void takePaletteOfSameName(ViewerState &viewer);
