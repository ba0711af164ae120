#include "pixels/bload_depacker.h"

#include <algorithm>

// The code is a list of runs, each a count and the byte to repeat:
//   n b      n times b, n = 1 to 255
//   0 n b    the same
//   0 0 b    256 times b
// There is no end mark.
size_t depackBload(std::span<const uint8_t> packed, std::span<uint8_t> unpacked, size_t size) {
  constexpr size_t kMaxRun = 256;
  size_t source = 0;
  size_t written = 0;
  do {
    if (source == packed.size()) return written;
    size_t count = packed[source++];
    if (count == 0) {
      if (source == packed.size()) return written;
      count = packed[source++];
      if (count == 0) count = kMaxRun;
    }
    if (source == packed.size()) return written;
    const uint8_t value = packed[source++];
    count = std::min(count, unpacked.size() - written);
    std::fill_n(unpacked.begin() + static_cast<std::ptrdiff_t>(written), count, value);
    written += count;
  } while (written < size && written < unpacked.size());
  return written;
}
