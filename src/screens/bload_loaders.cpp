#include "screens/bload_loaders.h"

#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "state/palette.h"
#include "pixels/packed_bload.h"
#include "screens/bload_file.h"
#include "screens/byte_pixels.h"

namespace {

constexpr int32_t kPalette5 = 0x7680;
constexpr int32_t kPalette7 = 0xFA80;
constexpr int32_t kEnd5 = signedAddress(0x69FF); // 256 x 212 pixels, 4 bits each
constexpr int32_t kEnd7 = signedAddress(0xD3FF); // 54,272 bytes of pixels
constexpr int32_t kAny = kHighestAddress;
using enum BloadPalette;

// clang-format off
//                                   end from, to,   bits, mode,             width, height, colours, palette, at,        packed
constexpr BloadSettings kScreen5  = {kEnd5,    kAny, 4,    0,                256,   212,    16,      kInFile, kPalette5, ".SR5"};
constexpr BloadSettings kScreen6  = {kEnd5,    kAny, 2,    0,                512,   212,    4,       kInFile, kPalette5, {}};
constexpr BloadSettings kScreen7  = {kEnd7,    kAny, 4,    0,                512,   212,    16,      kInFile, kPalette7, ".SR7"};
constexpr BloadSettings kScreen8  = {kEnd7,    kAny, 8,    ColourModeGrb332, 256,   212,    255,     kNone,   0,         {}};
constexpr BloadSettings kScreen10 = {kEnd7,    kAny, 8,    ColourModeYae,    256,   212,    16,      kInFile, kPalette7, {}};
constexpr BloadSettings kScreen12 = {kEnd7,    kAny, 8,    ColourModeYjk,    256,   212,    0,       kNone,   0,         {}};
// clang-format on

void storeSettings(ViewerState &viewer, const BloadSettings &settings) {
  viewer.bitsPerPixel = settings.bitsPerPixel;
  if (settings.colourMode != kKeptMode) viewer.colourMode = static_cast<uint8_t>(settings.colourMode);
  viewer.imageWidth = settings.imageWidth;
  viewer.imageHeight = settings.imageHeight;
  viewer.colourCount = settings.colourCount;
  if (settings.palette != kNone) viewer.hasPalette = kTrue;
  if (settings.palette == kInFile) viewer.paletteFilePos = filePositionOf(settings.paletteAddress);
}

void loadPlain(ViewerState &viewer, const BloadSettings &settings) {
  if (!bloadAddressesValid(viewer, settings.endLowest, settings.endHighest)) {
    reportNotValid(viewer);
    return;
  }
  storeSettings(viewer, settings);
  if (settings.palette == kInFile) readFilePalette(viewer);
  if (settings.palette == kStandard) setDefaultPalette(viewer);
  viewer.isPacked = kFalse;
  showPictureInfo(viewer);
  loadVram(viewer, kBodyPos);
  renderAndShow(viewer);
}

void loadPacked(ViewerState &viewer, const BloadSettings &settings) {
  if (readByte(viewer.inputFile, kIdentifierPos) != kPackedIdentifier || !packedBloadAddressesValid(viewer)) {
    reportNotValid(viewer);
    return;
  }
  storeSettings(viewer, settings);
  viewer.isPacked = kTrue;
  setDefaultPalette(viewer); // a palette in the packed body is not looked for
  showPictureInfo(viewer);
  loadVram(viewer, kBodyPos);
  loadPackedData(viewer, kBodyPos);
  const int32_t pictureBytes = viewer.imageWidth * viewer.imageHeight / (8 / viewer.bitsPerPixel);
  viewer.vram.use(depackBload(viewer.packedData, viewer.vram, static_cast<size_t>(pictureBytes)));
  renderAndShow(viewer);
}

} // namespace

void loadBload(ViewerState &viewer, const BloadSettings &settings) {
  if (!openFileForReading(viewer)) return;
  if (readByte(viewer.inputFile, kIdentifierPos) == kPlainIdentifier) {
    loadPlain(viewer, settings);
  } else if (settings.packedExtension.empty()) {
    reportNotValid(viewer);
  } else if (viewer.fileExtension == settings.packedExtension) {
    loadPacked(viewer, settings);
  }
}

void loadScreen5(ViewerState &viewer) { loadBload(viewer, kScreen5); }
void loadScreen6(ViewerState &viewer) { loadBload(viewer, kScreen6); }
void loadScreen7(ViewerState &viewer) { loadBload(viewer, kScreen7); }
void loadScreen8(ViewerState &viewer) { loadBload(viewer, kScreen8); }
void loadScreen10(ViewerState &viewer) { loadBload(viewer, kScreen10); }
void loadScreen12(ViewerState &viewer) { loadBload(viewer, kScreen12); }
