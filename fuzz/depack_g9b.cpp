// The code of V9990 pictures.
#include "pixels/g9b_depacker.h"

#include <algorithm>
#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static std::array<uint8_t, 0x10000> unpacked;
  static size_t used = 0;
  if (size == 0) return 0;
  std::fill_n(unpacked.begin(), used, uint8_t{0});
  G9bDepacker depacker;
  for (int block = 0; block < data[0]; ++block) depackG9bBlock(depacker, {data, size}, unpacked);
  used = depacker.written;
  if (used > unpacked.size()) std::abort();
  for (size_t i = used; i < std::min(used + 64, unpacked.size()); ++i) {
    if (unpacked[i] != 0) std::abort(); // behind the output nothing is left
  }
  return 0;
}
