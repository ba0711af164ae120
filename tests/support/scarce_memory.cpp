#include "support/scarce_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

// Whether this block is to be refused.
static bool refuses(size_t size) {
  ScarceMemory &memory = scarceMemory();
  return size > memory.beyond && ++memory.largeBlocks == memory.refusedBlock;
}

ScarceMemory &scarceMemory() {
  static thread_local ScarceMemory memory;
  return memory;
}

// The linker leads every calloc() here. Small blocks are given unseen: what holds the variables of a thread may ask for
// them while a variable of this thread is being made.
// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp): the linker wants these names
extern "C" void *__real_calloc(size_t count, size_t size);
extern "C" void *__wrap_calloc(size_t count, size_t size) {
  constexpr size_t kAlwaysGiven = 4096;
  const size_t all = count * size;
  return all > kAlwaysGiven && refuses(all) ? nullptr : __real_calloc(count, size);
}
// NOLINTEND(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)

void *operator new(size_t size) {
  void *block = refuses(size) ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  if (const auto fill = scarceMemory().fill) std::memset(block, *fill, size);
  return block;
}

void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, size_t) noexcept { std::free(block); }
