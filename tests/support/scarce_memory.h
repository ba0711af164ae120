// What `new` and calloc() give in the test program: large blocks can be refused, and fresh memory can be filled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

struct ScarceMemory {
  size_t beyond = 1024 * 1024;      // bytes; only pictures and what is made of them have more
  int largeBlocks = 0;              // asked for so far
  int refusedBlock = 0;             // number of the large block that is not given; 0: none
  std::optional<uint8_t> fill = {}; // value of every byte of a fresh block
};

// Of this thread.
inline constinit thread_local ScarceMemory theMemory;
inline ScarceMemory &scarceMemory() { return theMemory; }
