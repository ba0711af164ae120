#include "screens/bload_file.h"

bool bloadAddressesValid(const ViewerState &viewer, int32_t endLowest) {
  // As signed numbers the addresses from 0x8000 on lie below 0, so a bound of 0x69FF shuts them out, while one of
  // 0xD3FF lets everything below 0x8000 in: intended.
  return packedBloadAddressesValid(viewer) && readSignedWord(viewer.inputFile, kEndAddressPos) >= endLowest;
}

bool packedBloadAddressesValid(const ViewerState &viewer) {
  return readSignedWord(viewer.inputFile, kStartAddressPos) == 0 &&
         readSignedWord(viewer.inputFile, kExecutionAddressPos) == 0;
}
