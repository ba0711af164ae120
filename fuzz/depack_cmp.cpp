// The code of DD-Graph's compressed pictures.
#include "pixels/cmp_depacker.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static CmpDepacker depacker;
  startCmpDepacker(depacker, {data, size});
  size_t lines = 1;
  while (depackCmpLine(depacker)) ++lines;
  if (lines > 256 || depacker.output > kCmpMemoryBytes) std::abort();
  return 0;
}
