// How many colours the shown picture has.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <span>

// Number of distinct 24-bit colours in words 0x00RRGGBB.
int32_t CountUniqueColours(std::span<const uint32_t> frameBits);

// The count shown to the user: at most what the depth allows, without colours that the view of some kinds adds:
// intended, the user asks about the file.
int32_t shownColourCount(const ViewerState &viewer);

// "Count Colors": shows the count in a message.
void menuCountColors_Click(ViewerState &viewer);
