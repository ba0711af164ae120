#include "screens/copy_loaders.h"

#include "state/labels.h"
#include "state/palette.h"
#include "state/video_memory.h"

// A rectangle, words little-endian and signed:
//  offset  size  field
//       0     2  width, pixels
//       2     2  height, lines
//       4        pixels; lines have no padding and may begin inside a byte

namespace {

constexpr int32_t kWidthPos = 1;
constexpr int32_t kHeightPos = 3;
constexpr int32_t kPixelsPos = 5;

constexpr int32_t kMinSide = 8;
constexpr int32_t kMaxHeight = 212;

using enum CopyPalette;

// clang-format off
//                                    max,  bits, mode,             colours, palette,   high,  keeps, refused
constexpr CopySettings kScreen5Copy  = {256, 4,   0,                16,      kStandard, false, true,  false};
constexpr CopySettings kScreen6Copy  = {512, 2,   0,                4,       kStandard, true,  true,  false};
constexpr CopySettings kStampCopy    = {512, 2,   0,                4,       kStamp,    true,  true,  false};
constexpr CopySettings kScreen7Copy  = {512, 4,   0,                16,      kStandard, true,  true,  false};
constexpr CopySettings kScreen8Copy  = {256, 8,   ColourModeGrb332, 0,       kNone,     false, true,  false};
constexpr CopySettings kScreen10Copy = {256, 8,   ColourModeYae,    16,      kStandard, false, true,  false};
constexpr CopySettings kScreen12Copy = {256, 8,   ColourModeYjk,    0,       kNone,     false, true,  true};
// clang-format on

// Position behind the pixels. An odd width counts half a byte per line, and the sum is rounded: intended, existing
// files have their palette there.
int32_t positionBehindPixels(const ViewerState &viewer) {
  return roundHalfEven(viewer.imageWidth / 2.0 * viewer.imageHeight + kPixelsPos);
}

void takePalette(ViewerState &viewer, CopyPalette palette) {
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

bool loadCopy(ViewerState &viewer, const CopySettings &settings) {
  const int32_t width = readSignedWord(viewer.inputFile, kWidthPos);
  const int32_t height = readSignedWord(viewer.inputFile, kHeightPos);
  const bool widthValid = width >= kMinSide && width <= settings.maxWidth;
  if (!widthValid || height < kMinSide || height > kMaxHeight || settings.refused) return reportNotValid(viewer);
  describePicture(viewer, {.bitsPerPixel = settings.bitsPerPixel,
                           .colourMode = settings.colourMode,
                           .colourCount = settings.colourCount,
                           .hasPalette = toFlag(settings.palette != kNone),
                           .imageWidth = width,
                           .imageHeight = height});
  takePalette(viewer, settings.palette);
  if (settings.highPixels && viewer.preferences.Check5 != kTrue) viewer.window.menuDoubleHeight.checked = true;
  showPictureInfo(viewer);
  if (settings.keepsVram) {
    overlayVram(viewer, kPixelsPos);
  } else {
    loadVram(viewer, kPixelsPos);
  }
  return true;
}

bool loadScreen5Copy(ViewerState &viewer) { return loadCopy(viewer, kScreen5Copy); }
bool loadScreen6Copy(ViewerState &viewer) { return loadCopy(viewer, kScreen6Copy); }
bool loadStamp(ViewerState &viewer) { return loadCopy(viewer, kStampCopy); }
bool loadScreen7Copy(ViewerState &viewer) { return loadCopy(viewer, kScreen7Copy); }
bool loadScreen8Copy(ViewerState &viewer) { return loadCopy(viewer, kScreen8Copy); }
bool loadScreen10Copy(ViewerState &viewer) { return loadCopy(viewer, kScreen10Copy); }
bool loadScreen12Copy(ViewerState &viewer) { return loadCopy(viewer, kScreen12Copy); }
