// The code of Dynamic Publisher pages.
#include "formats/publisher_page.h"

#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static std::array<uint8_t, size_t{512} * 704 / 8> unpacked;
  if (depackPublisherPage({data, size}, unpacked) > unpacked.size()) std::abort();
  return 0;
}
