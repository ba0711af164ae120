#include "core/display_geometry.h"

#include "base/numbers.h"
#include "state/palette.h"

#include <algorithm>

namespace {

constexpr int32_t kZoomLimit = 256; // maximum side of a zoomed picture

// Divisor of both sides of a reduced view: intended, a printed page fits the screen.
constexpr double kReduction = 2.2;

} // namespace

void ApplyDisplayGeometry(ViewerState &viewer) {
  if (viewer.pictureShown != kTrue || viewer.player != nullptr) return;
  WindowModel &window = viewer.window;
  const int32_t width = viewer.frameWidth;
  const int32_t height = viewer.frameHeight;

  // The pixels of the 512-pixel screens are twice as high as wide.
  if (viewer.preferences.Check5 != kTrue && width == 512 && height == 212) window.menuDoubleHeight.checked = true;

  int32_t areaWidth = width;
  int32_t areaHeight = height;
  if (viewer.zoomMode == 1 && width <= kZoomLimit && height <= kZoomLimit) {
    areaWidth *= 2;
    areaHeight *= 2;
  }
  if (window.menuDoubleHeight.checked) areaHeight *= 2;
  if (viewer.pictureKind->traits.reducedView) {
    areaWidth = roundHalfEven(areaWidth / kReduction);
    areaHeight = roundHalfEven(areaHeight / kReduction);
  }
  window.stretch = {.sourceWidth = width, .sourceHeight = height, .targetWidth = areaWidth, .targetHeight = areaHeight};

  window.mainViewWidth = std::max(areaWidth, kMinAreaWidth) + kViewBorders;
  window.mainViewHeight = std::max(areaHeight, kMinAreaHeight) + kViewBorders;
  ++window.pictureSerial;
  ++window.fittings;
  window.readout = {}; // the old one is of the last picture

  const PictureSettings &picture = viewer.picture;
  window.menuSavePal.enabled = picture.hasPalette == kTrue;
  window.menuLoadPal.enabled = hasShortPalette(viewer);
  window.menuRestPal.enabled = picture.hasPalette == kTrue && viewer.storedPaletteCount == picture.colourCount;
}
