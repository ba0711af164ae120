// The shown picture in the colour numbers that it is drawn with.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <vector>

// Both empty if some pixel is not exactly the colour of an entry of one palette, or if there is not enough memory.
struct NumberedPicture {
  std::vector<uint8_t> entries;  // one a pixel, top row first
  std::vector<uint32_t> palette; // words 0x00RRGGBB: all entries in their order, unused and double ones, too
};

// Draws into the frame meanwhile, which is then as before; so a byte a pixel is all the memory that this needs.
NumberedPicture numberPicture(ViewerState &viewer);
