// How many colours the shown picture has.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <span>

// Distinct 24-bit colours among words 0x00RRGGBB; 0 when there are none.
int32_t CountUniqueColours(std::span<const uint32_t> frameBits);

// The count as the user is told it: at most what the depth allows, and without the colours that
// the display of some kinds adds to the file's own: intended.
int32_t shownColourCount(const ViewerState &viewer);

// "Count Colors": tells the user the count in a message.
void menuCountColors_Click(ViewerState &viewer);
