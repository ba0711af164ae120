// Chooses the renderers of the current picture and hands the result to the window.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <vector>

// Draws `vram` into `frameBits` by the picture's description, sets the state of View Palette, lets pending events run
// once, and presents the picture. A depth that no renderer serves gives a black picture. Returns false, with the frame
// as it was and the lack reported, when memory is lacking.
bool renderPicture(ViewerState &viewer);

// Marks a word of renderEntries() that is a palette entry.
inline constexpr uint32_t kEntryMark = 0x01000000;

// The picture once more, with kEntryMark + entry for each pixel that is drawn through `palette`. A picture whose
// palette changes from line to line has no such pixels. Empty where the picture's size is no longer that of the frame,
// and when memory is lacking.
std::vector<uint32_t> renderEntries(ViewerState &viewer);
