#include "core/buffers.h"

#include <new>

// The one file that is compiled with exceptions: the library's word for lacking memory goes no further than here.

namespace {

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
  return given;
}

} // namespace

bool provideRoom(std::vector<uint8_t> &buffer, size_t count) { return reserved(buffer, count); }
bool provideRoom(std::vector<uint32_t> &buffer, size_t count) { return reserved(buffer, count); }
