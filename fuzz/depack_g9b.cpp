// The code of V9990 pictures.
#include "formats/g9b_depacker.h"

#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static std::array<uint8_t, 0x10000> unpacked;
  if (size == 0) return 0;
  G9bDepacker depacker;
  for (int block = 0; block < data[0]; ++block) depackG9bBlock(depacker, {data, size}, unpacked);
  if (depacker.written > unpacked.size()) std::abort();
  return 0;
}
