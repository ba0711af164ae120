// Depacker of V9990 pictures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// State between blocks. The first byte of the packed data is the number of blocks.
struct G9bDepacker {
  size_t source = 1;
  size_t written = 0;
};

// Unpacks the next block. Also stops at the end of either buffer. `unpacked` must be zero from `written` on, and then
// is zero behind the block.
void depackG9bBlock(G9bDepacker &depacker, std::span<const uint8_t> packed, std::span<uint8_t> unpacked);
