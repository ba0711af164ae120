// Colours as the read-out and the swatches name them.
#pragma once

#include <cstdint>
#include <string>

// The colour 0x00RRGGBB as "#B69191   R5 G4 B4". The levels of the machine follow only if all three channels are 3-bit
// levels on the scale of 0 to 255, either all rounded (as in palette files) or all truncated (as in the standard
// palette).
std::string colourAndLevels(uint32_t colour);
