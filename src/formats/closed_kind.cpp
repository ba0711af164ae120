#include "formats/closed_kind.h"

#include "core/dispatch.h"

void loadClosedKind(ViewerState &viewer) {
  if (openFileForReading(viewer)) reportNotValid(viewer);
}
