#include "screens/copy_loaders.h"

#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "state/palette.h"
#include "screens/byte_pixels.h"

// A rectangle, words little-endian and signed:
//  offset  size  field
//       0     2  width, pixels
//       2     2  height, lines
//       4        pixels, line after line, not filled up to whole bytes

namespace {

constexpr int32_t kWidthPos = 1;
constexpr int32_t kHeightPos = 3;
constexpr int32_t kPixelsPos = 5;

constexpr int32_t kLeastSide = 8;
constexpr int32_t kMostHeight = 212;

using enum CopyPalette;

// clang-format off
//                                    most, bits, mode,             colours, palette,   high,  keeps, refused
constexpr CopySettings kScreen5Copy  = {256, 4,   0,                16,      kStandard, false, true,  false};
constexpr CopySettings kScreen6Copy  = {512, 2,   0,                4,       kStandard, true,  true,  false};
constexpr CopySettings kStampCopy    = {512, 2,   0,                4,       kStamp,    true,  true,  false};
constexpr CopySettings kScreen7Copy  = {512, 4,   0,                16,      kStandard, true,  true,  false};
constexpr CopySettings kScreen8Copy  = {256, 8,   ColourModeGrb332, 0,       kNone,     false, true,  false};
constexpr CopySettings kScreen10Copy = {256, 8,   ColourModeYae,    16,      kStandard, false, true,  false};
constexpr CopySettings kScreen12Copy = {256, 8,   ColourModeYjk,    0,       kNone,     false, true,  true};
// clang-format on

// Position behind the pixels. An odd width counts half a byte a line, and the sum is rounded: intended.
int32_t positionBehindPixels(const ViewerState &viewer) {
  return roundHalfEven(viewer.imageWidth / 2.0 * viewer.imageHeight + kPixelsPos);
}

void takePalette(ViewerState &viewer, CopyPalette palette) {
  viewer.hasPalette = toFlag(palette != kNone);
  if (palette == kStandard || palette == kStamp) setDefaultPalette(viewer);
  if (palette == kStamp) {
    viewer.palette[0] = packColour(255, 255, 255);
    viewer.palette[1] = packColour(0, 0, 0);
  }
  if (palette == kBehindPixels) {
    viewer.paletteFilePos = positionBehindPixels(viewer);
    readFilePalette(viewer);
  }
}

} // namespace

void loadCopy(ViewerState &viewer, const CopySettings &settings) {
  if (!openFileForReading(viewer)) return;
  const int32_t width = readSignedWord(viewer.inputFile, kWidthPos);
  const int32_t height = readSignedWord(viewer.inputFile, kHeightPos);
  const bool widthValid = width >= kLeastSide && width <= settings.mostWidth;
  if (!widthValid || height < kLeastSide || height > kMostHeight || settings.refused) {
    reportNotValid(viewer);
    return;
  }
  viewer.imageWidth = width;
  viewer.imageHeight = height;
  viewer.bitsPerPixel = settings.bitsPerPixel;
  viewer.colourMode = settings.colourMode;
  viewer.colourCount = settings.colourCount;
  viewer.isPacked = kFalse;
  takePalette(viewer, settings.palette);
  if (settings.highPixels && viewer.preferences.Check5 != kTrue) viewer.window.menuDoubleHeight.checked = true;
  showPictureInfo(viewer);
  if (settings.keepsVram) {
    overlayVram(viewer, kPixelsPos);
  } else {
    loadVram(viewer, kPixelsPos);
  }
  renderAndShow(viewer);
}

void loadScreen5Copy(ViewerState &viewer) { loadCopy(viewer, kScreen5Copy); }
void loadScreen6Copy(ViewerState &viewer) { loadCopy(viewer, kScreen6Copy); }
void loadStamp(ViewerState &viewer) { loadCopy(viewer, kStampCopy); }
void loadScreen7Copy(ViewerState &viewer) { loadCopy(viewer, kScreen7Copy); }
void loadScreen8Copy(ViewerState &viewer) { loadCopy(viewer, kScreen8Copy); }
void loadScreen10Copy(ViewerState &viewer) { loadCopy(viewer, kScreen10Copy); }
void loadScreen12Copy(ViewerState &viewer) { loadCopy(viewer, kScreen12Copy); }
