#include "support/scarce_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

thread_local int64_t blockCount = 0;

// Whether this block is to be refused.
bool refuses(size_t size) {
  ScarceMemory &memory = scarceMemory();
  return size > memory.beyond && ++memory.largeBlocks == memory.refusedBlock;
}

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

// The linker leads every calloc() here. Small blocks are given unseen: what holds the variables of a thread may ask for
// them while a variable of this thread is being made.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp): the linker wants these names
void *__real_calloc(size_t count, size_t size);
void *__wrap_calloc(size_t count, size_t size) {
  constexpr size_t kAlwaysGiven = 4096;
  const size_t all = count * size;
  return all > kAlwaysGiven && refuses(all) ? nullptr : __real_calloc(count, size);
}
// NOLINTEND(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)
}

void *operator new(size_t size) {
  const ScarceMemory &memory = scarceMemory();
  void *block = refuses(size) ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  ++blockCount;
  if (memory.fill) std::memset(block, *memory.fill, size);
  return block;
}

void operator delete(void *block) noexcept { give(block); }
void operator delete(void *block, size_t) noexcept { give(block); }
