#include "support/scarce_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

thread_local int64_t blockCount = 0;

void give(void *block) {
  if (block != nullptr) --blockCount;
  std::free(block);
}

} // namespace

int64_t liveBlocks() { return blockCount; }

ScarceMemory &scarceMemory() {
  static thread_local ScarceMemory memory;
  return memory;
}

void *operator new(size_t size) {
  ScarceMemory &memory = scarceMemory();
  const bool refused = size > memory.beyond && ++memory.largeBlocks == memory.refusedBlock;
  void *block = refused ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  ++blockCount;
  if (memory.fill) std::memset(block, *memory.fill, size);
  return block;
}

void operator delete(void *block) noexcept { give(block); }
void operator delete(void *block, size_t) noexcept { give(block); }
