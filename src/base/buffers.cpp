#include "base/buffers.h"

#include <algorithm>
#include <cstring>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

// The one file that is compiled with exceptions: the library's word for lacking memory goes no further than here.

namespace {

// Has the system give all pages of fresh memory at once: to ask for each when it is first written takes longer than to
// draw its pixels.
void takePages([[maybe_unused]] void *memory, [[maybe_unused]] size_t bytes) {
#ifdef MADV_POPULATE_WRITE
  static const auto pageBytes = static_cast<size_t>(sysconf(_SC_PAGESIZE));
  const size_t before = (pageBytes - reinterpret_cast<uintptr_t>(memory) % pageBytes) % pageBytes;
  if (bytes < before + pageBytes) return;
  // Where the system does not know how, pages come as before.
  (void)madvise(static_cast<uint8_t *>(memory) + before, (bytes - before) / pageBytes * pageBytes, MADV_POPULATE_WRITE);
#endif
}

template <typename Item> bool reserved(std::vector<Item> &buffer, size_t count) {
  if (count <= buffer.capacity()) return true;
  // The program's own handler would end it.
  const std::new_handler handler = std::set_new_handler(nullptr);
  bool given = true;
  try {
    buffer.reserve(count);
  } catch (const std::bad_alloc &) {
    given = false;
  }
  std::set_new_handler(handler);
  if (given) takePages(buffer.data(), count * sizeof(Item));
  return given;
}

} // namespace

VideoMemory::VideoMemory(size_t size) {
  if (resize(size)) return;
  if (const std::new_handler handler = std::get_new_handler(); handler != nullptr) handler();
  throw std::bad_alloc();
}

bool VideoMemory::resize(size_t size) {
  if (size == length) return true;
  auto *block = static_cast<uint8_t *>(std::calloc(size, 1));
  if (block == nullptr) return false;
  used = std::min(used, size);
  if (used > 0) std::memcpy(block, data(), used);
  bytes.reset(block);
  length = size;
  return true;
}

void VideoMemory::clearFrom(size_t position) {
  if (position >= used) return;
  std::memset(data() + position, 0, used - position);
  used = position;
}

void VideoMemory::use(size_t end) { used = std::max(used, std::min(end, length)); }

bool provideRoom(VideoMemory &memory, size_t size) { return size <= memory.size() || memory.resize(size); }
bool provideRoom(std::vector<uint8_t> &buffer, size_t count) { return reserved(buffer, count); }
bool provideRoom(std::vector<uint32_t> &buffer, size_t count) { return reserved(buffer, count); }

void releaseRoom(std::vector<uint32_t> &buffer) {
  constexpr size_t kLarge = size_t{1} << 20;
  if (buffer.capacity() > kLarge && buffer.capacity() / 4 > buffer.size()) buffer.shrink_to_fit();
}
