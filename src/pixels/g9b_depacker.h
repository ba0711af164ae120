// Depacker of V9990 pictures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// How far the depacking has come; the first byte of the packed data is the number of blocks.
struct G9bDepacker {
  size_t source = 1;
  size_t written = 0;
};

// Unpacks the next block. Stops early at the end of either buffer. `unpacked` is zero behind what was written, and
// stays so.
void depackG9bBlock(G9bDepacker &depacker, std::span<const uint8_t> packed, std::span<uint8_t> unpacked);
