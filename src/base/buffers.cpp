#include "base/buffers.h"

#include <algorithm>
#include <cstring>
#include <new>

// Built with exceptions where there are any: bad_alloc is caught here and becomes false.

namespace {

#ifdef __cpp_exceptions
template <typename Item> bool reserved(std::vector<Item> &buffer, size_t count) {
  if (count <= buffer.capacity()) return true;
  const std::new_handler handler = std::set_new_handler(nullptr); // the program's own one ends it
  bool given = true;
  try {
    buffer.reserve(count);
  } catch (const std::bad_alloc &) {
    given = false;
  }
  std::set_new_handler(handler);
  return given;
}
#else
// There is one thread only, so memory that was given once is given again.
template <typename Item> bool reserved(std::vector<Item> &buffer, size_t count) {
  if (count <= buffer.capacity()) return true;
  if (count > buffer.max_size()) return false;
  void *block = std::malloc(count * sizeof(Item));
  std::free(block);
  if (block != nullptr) buffer.reserve(count);
  return block != nullptr;
}
#endif

} // namespace

VideoMemory::VideoMemory(size_t size) {
  if (resize(size)) return;
  if (const std::new_handler handler = std::get_new_handler(); handler != nullptr) handler();
  std::abort();
}

VideoMemory::VideoMemory(const VideoMemory &other) {
  if (!resize(other.length)) return;
  used = other.used;
  std::copy_n(other.data(), used, bytes.get());
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

std::span<uint8_t> VideoMemory::written(size_t end) {
  end = std::min(end, length);
  used = std::max(used, end);
  return {bytes.get(), end};
}

void VideoMemory::clearFrom(size_t position) {
  if (position >= used) return;
  std::memset(bytes.get() + position, 0, used - position);
  used = position;
}

bool reserve(VideoMemory &memory, size_t size) { return size <= memory.size() || memory.resize(size); }
bool reserve(std::vector<uint8_t> &buffer, size_t count) { return reserved(buffer, count); }
bool reserve(std::vector<uint32_t> &buffer, size_t count) { return reserved(buffer, count); }

void shrink(std::vector<uint32_t> &buffer) {
  constexpr size_t kLarge = size_t{1} << 20;
  if (buffer.capacity() > kLarge && buffer.capacity() / 4 > buffer.size()) buffer.shrink_to_fit();
}
