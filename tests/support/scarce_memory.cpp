#include "support/scarce_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

ScarceMemory &scarceMemory() {
  static thread_local ScarceMemory memory;
  return memory;
}

void *operator new(size_t size) {
  ScarceMemory &memory = scarceMemory();
  const bool refused = size > memory.beyond && ++memory.largeBlocks == memory.refusedBlock;
  void *block = refused ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  if (memory.fill) std::memset(block, *memory.fill, size);
  return block;
}

void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, size_t) noexcept { std::free(block); }
