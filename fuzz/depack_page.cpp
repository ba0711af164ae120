// The code of Dynamic Publisher pages.
#include "pixels/publisher_depacker.h"

#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static std::array<uint8_t, kPublisherPageBytes> unpacked;
  if (depackPublisherPage({data, size}, unpacked) > unpacked.size()) std::abort();
  return 0;
}
