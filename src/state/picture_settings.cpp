#include "state/picture_settings.h"

#include "state/viewer_state.h"

namespace {

template <typename Field> void store(Field &field, int16_t value) {
  if (value != kKept) field = static_cast<Field>(value);
}

} // namespace

void describePicture(ViewerState &viewer, const PictureSettings &settings) {
  store(viewer.bitsPerPixel, settings.bitsPerPixel);
  store(viewer.colourMode, settings.colourMode);
  store(viewer.colourCount, settings.colourCount);
  store(viewer.hasPalette, settings.hasPalette);
  store(viewer.isPacked, settings.isPacked);
  store(viewer.spriteMode, settings.spriteMode);
  viewer.imageWidth = settings.imageWidth;
  viewer.imageHeight = settings.imageHeight;
}

PictureSettings descriptionOf(const ViewerState &viewer) {
  return {.bitsPerPixel = viewer.bitsPerPixel,
          .colourMode = viewer.colourMode,
          .colourCount = viewer.colourCount,
          .hasPalette = viewer.hasPalette,
          .isPacked = viewer.isPacked,
          .spriteMode = viewer.spriteMode,
          .imageWidth = viewer.imageWidth,
          .imageHeight = viewer.imageHeight};
}
