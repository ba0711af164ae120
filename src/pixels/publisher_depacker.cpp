#include "pixels/publisher_depacker.h"

#include <algorithm>

namespace {

// Depacking ends one byte before the page is full, so the last byte may stay unwritten: intended, the program that made
// the pages reads them so.
constexpr size_t kDepackedBytes = kPublisherPageBytes - 1;

} // namespace

// The code is a list of runs, n being their first byte:
//   n < 128    n + 1 literal bytes
//   n >= 128   the next byte, repeated (n & 127) + 1 times
// There is no end mark.
size_t depackPublisherPage(std::span<const uint8_t> packed, std::span<uint8_t> unpacked) {
  size_t source = 0;
  size_t written = 0;
  while (written < kDepackedBytes && source < packed.size()) {
    const uint8_t control = packed[source++];
    const bool repeats = (control & 0x80) != 0;
    size_t count = std::min<size_t>((control & 0x7F) + 1U, unpacked.size() - written);
    if (!repeats) count = std::min(count, packed.size() - source);
    if (count == 0 || source == packed.size()) return written;
    for (size_t i = 0; i < count; ++i) unpacked[written++] = repeats ? packed[source] : packed[source + i];
    source += repeats ? 1 : count;
  }
  return written;
}
