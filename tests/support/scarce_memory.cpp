#include "support/scarce_memory.h"

#include <cstdlib>
#include <cstring>
#include <new>

// Whether this block is to be refused.
static bool refuses(size_t size) {
  return size > theMemory.beyond && ++theMemory.largeBlocks == theMemory.refusedBlock;
}

// The linker leads every calloc() here. Small blocks are given unseen: what holds the variables of a thread may ask for
// them while a variable of this thread is being made.
// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp): the linker wants these names
extern "C" void *__real_calloc(size_t count, size_t size);
extern "C" void *__wrap_calloc(size_t count, size_t size) {
  return count * size > 4096 && refuses(count * size) ? nullptr : __real_calloc(count, size);
}
// NOLINTEND(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)

void *operator new(size_t size, const std::nothrow_t &) noexcept {
  void *block = refuses(size) ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block != nullptr && theMemory.fill) std::memset(block, *theMemory.fill, size);
  return block;
}

void *operator new(size_t size) {
  void *block = operator new(size, std::nothrow);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, size_t) noexcept { std::free(block); }
