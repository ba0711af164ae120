// Memory of the sizes that files ask for: pictures, frames, packed bodies, bitmaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Makes room for `count` items, so that the buffer can then be sized up to there. Returns false, with the buffer as it
// was, when memory is lacking. All other memory is small; where that is lacking the program ends with a message.
bool provideRoom(std::vector<uint8_t> &buffer, size_t count);
bool provideRoom(std::vector<uint32_t> &buffer, size_t count);
