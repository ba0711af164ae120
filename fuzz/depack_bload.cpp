// The run-length code of packed Screen 5 and 7 pictures.
#include "pixels/bload_depacker.h"

#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static std::array<uint8_t, 0x10000> unpacked;
  for (const size_t wanted : {size_t{0x7687}, unpacked.size()}) {
    if (depackBload({data, size}, unpacked, wanted) > unpacked.size()) std::abort();
  }
  return 0;
}
