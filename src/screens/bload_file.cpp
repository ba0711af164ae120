#include "screens/bload_file.h"

bool bloadAddressesValid(const ViewerState &viewer, int32_t endLowest, int32_t endHighest) {
  const int32_t end = readSignedWord(viewer.inputFile, kEndAddressPos);
  return packedBloadAddressesValid(viewer) && end >= endLowest && end <= endHighest;
}

bool packedBloadAddressesValid(const ViewerState &viewer) {
  return readSignedWord(viewer.inputFile, kStartAddressPos) == 0 &&
         readSignedWord(viewer.inputFile, kExecutionAddressPos) == 0;
}
