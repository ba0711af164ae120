#include "screens/bload_loaders.h"

#include "pixels/bload_depacker.h"
#include "state/labels.h"
#include "state/palette.h"
#include "state/video_memory.h"

#include <array>

//  offset  size  field              rule
//       0     1  identifier         0xFE plain, 0xFD packed
//       1     2  start address      0
//       3     2  end address        bounds for each kind, as signed 16-bit numbers; not checked in a packed file
//       5     2  execution address  0
//       7        body               video memory from address 0
// Words are little-endian.

namespace {

constexpr int32_t kIdentifierPos = 1; // 1-based, as all positions
constexpr int32_t kBodyPos = 8;

constexpr uint8_t kPlainIdentifier = 0xFE;
constexpr uint8_t kPackedIdentifier = 0xFD;

// As signed numbers, addresses from 0x8000 on are negative. A minimum of 0x69FF excludes them, one of 0xD3FF also
// accepts all below 0x8000: intended, BASIC counts addresses so.
constexpr int32_t signedAddress(uint16_t address) { return static_cast<int16_t>(address); }

constexpr int32_t kPalette4 = 0x1B80;
constexpr int32_t kPalette5 = 0x7680;
constexpr int32_t kPalette7 = 0xFA80;
constexpr int32_t kEnd2 = signedAddress(0x37FF); // the tables of patterns, names and colours
constexpr int32_t kEnd5 = signedAddress(0x69FF); // 256 x 212 pixels, 4 bits each
constexpr int32_t kEnd7 = signedAddress(0xD3FF); // 54,272 bytes of pixels
constexpr int32_t kAny = signedAddress(0x7FFF);
using enum BloadPalette;

// clang-format off
//                                   min,   max,  bits, mode,             width, height, colours, palette,   at
constexpr BloadSettings kScreen2  = {kEnd2, kAny, 1,    0,                256,   192,    16,      kStandard, 0};
constexpr BloadSettings kScreen4  = {kEnd2, kAny, 1,    0,                256,   192,    16,      kInFile,   kPalette4};
constexpr BloadSettings kScreen5  = {kEnd5, kAny, 4,    0,                256,   212,    16,      kInFile,   kPalette5};
constexpr BloadSettings kScreen6  = {kEnd5, kAny, 2,    0,                512,   212,    4,       kInFile,   kPalette5};
constexpr BloadSettings kScreen7  = {kEnd7, kAny, 4,    0,                512,   212,    16,      kInFile,   kPalette7};
constexpr BloadSettings kScreen8  = {kEnd7, kAny, 8,    ColourModeGrb332, 256,   212,    255,     kNone,     0};
constexpr BloadSettings kScreen10 = {kEnd7, kAny, 8,    ColourModeYae,    256,   212,    16,      kInFile,   kPalette7};
constexpr BloadSettings kScreen12 = {kEnd7, kAny, 8,    ColourModeYjk,    256,   212,    0,       kNone,     0};
// clang-format on

struct BloadHeader {
  uint8_t identifier;
  int32_t start;
  int32_t end;
  int32_t execution;
};

BloadHeader readHeader(const InputFile &file) {
  std::array<uint8_t, kBodyPos - 1> bytes;
  readBytes(file, kIdentifierPos, bytes);
  const auto address = [&bytes](size_t at) {
    return signedAddress(static_cast<uint16_t>(bytes[at] | bytes[at + 1] << 8));
  };
  return {bytes[0], address(1), address(3), address(5)};
}

void describeBload(ViewerState &viewer, const BloadSettings &settings, bool packed) {
  describePicture(viewer, {.bitsPerPixel = settings.bitsPerPixel,
                           .colourMode = settings.colourMode,
                           .colourCount = settings.colourCount,
                           .hasPalette = settings.palette == kNone ? kKept : kTrue,
                           .isPacked = toFlag(packed),
                           .spriteMode = settings.bitsPerPixel == 1 ? kFalse : kKept,
                           .imageWidth = settings.imageWidth,
                           .imageHeight = settings.imageHeight});
  if (settings.palette == kInFile) viewer.paletteFilePos = kBodyPos + settings.paletteAddress;
}

bool loadPlain(ViewerState &viewer, const BloadSettings &settings, const BloadHeader &header) {
  const bool endValid = header.end >= settings.minEnd && header.end <= settings.maxEnd;
  if (!endValid || header.start != 0 || header.execution != 0) return reportNotValid(viewer);
  describeBload(viewer, settings, false);
  if (settings.palette == kInFile) readFilePalette(viewer);
  if (settings.palette == kStandard) setDefaultPalette(viewer);
  showPictureInfo(viewer);
  loadVram(viewer, kBodyPos);
  return true;
}

bool loadPacked(ViewerState &viewer, const BloadSettings &settings, const BloadHeader &header) {
  const bool valid = header.identifier == kPackedIdentifier && header.start == 0 && header.execution == 0;
  if (!valid) return reportNotValid(viewer);
  describeBload(viewer, settings, true);
  setDefaultPalette(viewer); // a palette in the packed body is ignored
  showPictureInfo(viewer);
  loadVram(viewer, kBodyPos); // bytes that depacking does not reach are those of the packed body
  loadPackedData(viewer, kBodyPos);
  constexpr size_t kMaxOverrun = 255; // of the last run behind the picture
  const size_t pictureBytes = pixelCountOf(viewer) / (8U / viewer.bitsPerPixel);
  depackBload(viewer.packedData, viewer.vram.written(pictureBytes + kMaxOverrun), pictureBytes);
  return true;
}

} // namespace

bool isPlainBload(const ViewerState &viewer) { return readByte(viewer.inputFile, kIdentifierPos) == kPlainIdentifier; }

bool loadBload(ViewerState &viewer, const BloadSettings &settings, BloadBody body) {
  const BloadHeader header = readHeader(viewer.inputFile);
  if (header.identifier == kPlainIdentifier) return loadPlain(viewer, settings, header);
  if (body == BloadBody::kPacked) return loadPacked(viewer, settings, header);
  if (body == BloadBody::kIgnored) return false;
  return reportNotValid(viewer);
}

bool loadScreen2(ViewerState &viewer) { return loadBload(viewer, kScreen2); }
bool loadScreen4(ViewerState &viewer) { return loadBload(viewer, kScreen4); }
bool loadScreen5(ViewerState &viewer) { return loadBload(viewer, kScreen5, BloadBody::kIgnored); }
bool loadPackedScreen5(ViewerState &viewer) { return loadBload(viewer, kScreen5, BloadBody::kPacked); }
bool loadScreen6(ViewerState &viewer) { return loadBload(viewer, kScreen6); }
bool loadScreen7(ViewerState &viewer) { return loadBload(viewer, kScreen7, BloadBody::kIgnored); }
bool loadPackedScreen7(ViewerState &viewer) { return loadBload(viewer, kScreen7, BloadBody::kPacked); }
bool loadScreen8(ViewerState &viewer) { return loadBload(viewer, kScreen8); }
bool loadScreen10(ViewerState &viewer) { return loadBload(viewer, kScreen10); }
bool loadScreen12(ViewerState &viewer) { return loadBload(viewer, kScreen12); }
