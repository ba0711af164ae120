#include "core/display_geometry.h"

#include "base/buffers.h"
#include "base/numbers.h"
#include "state/palette.h"

#include <algorithm>

namespace {

constexpr int32_t kZoomLimit = 256; // wider or higher pictures are never zoomed
constexpr int32_t kLeastAreaWidth = 256;
constexpr int32_t kLeastAreaHeight = 192;

// Pages of a desktop publishing program are shown reduced in both directions: intended.
constexpr const char *kReducedExtension = ".PCT";
constexpr double kReduction = 2.2;

} // namespace

void ApplyDisplayGeometry(ViewerState &viewer) {
  if (viewer.pictureShown != kTrue || videoOpen(viewer)) return;
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
  if (viewer.fileExtension == kReducedExtension) {
    areaWidth = roundHalfEven(areaWidth / kReduction);
    areaHeight = roundHalfEven(areaHeight / kReduction);
  }
  window.stretch = {.sourceWidth = width, .sourceHeight = height, .targetWidth = areaWidth, .targetHeight = areaHeight};

  window.mainViewWidth = std::max(areaWidth, kLeastAreaWidth) + kFrameAround;
  window.mainViewHeight = std::max(areaHeight, kLeastAreaHeight) + kFrameAround;
  ++window.pictureSerial;
  window.readout = {}; // of the picture before

  window.menuSavePal.enabled = viewer.hasPalette == kTrue;
  window.menuLoadPal.enabled = hasShortPalette(viewer);
  window.menuRestPal.enabled = viewer.hasPalette == kTrue && viewer.storedPaletteCount == viewer.colourCount;
}

std::vector<uint32_t> stretchedPicture(const ViewerState &viewer) {
  const Stretch &stretch = viewer.window.stretch;
  std::vector<uint32_t> shown;
  if (viewer.pictureShown != kTrue) return shown;
  const size_t pixels = static_cast<size_t>(stretch.targetWidth) * static_cast<size_t>(stretch.targetHeight);
  if (!provideRoom(shown, pixels)) return shown;
  for (int64_t y = 0; y < stretch.targetHeight; ++y) {
    const int64_t line = y * stretch.sourceHeight / stretch.targetHeight * stretch.sourceWidth;
    for (int64_t x = 0; x < stretch.targetWidth; ++x) {
      shown.push_back(viewer.frameBits[static_cast<size_t>(line + x * stretch.sourceWidth / stretch.targetWidth)]);
    }
  }
  return shown;
}
