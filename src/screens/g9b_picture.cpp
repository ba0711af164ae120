#include "screens/g9b_picture.h"

#include "base/buffers.h"
#include "base/text.h"
#include "pixels/g9b_depacker.h"
#include "state/labels.h"
#include "state/palette.h"
#include "state/platform_calls.h"
#include "state/video_memory.h"

#include <algorithm>
#include <string_view>

//  offset  size  field
//       0     3  magic "G9B"
//       3     2  length of the rest of the header, 11
//       5     1  bits per pixel
//       6     1  colour mode
//       7     1  number of palette entries: 0, 2, 4, 16 or 64
//       8     2  width, pixels
//      10     2  height, lines
//      12     1  0 stored, 1 packed
//      13     3  length of the data; only shown
//      16        palette entries: red, green, blue, 0 to 31
//                pixels, or a number of packed blocks
// Numbers are little-endian and unsigned.

namespace {

constexpr std::string_view kMagic = "G9B";
constexpr uint16_t kHeaderLength = 11;
constexpr uint8_t kCompressions = 2;

constexpr int32_t kHeaderLengthPos = 4;
constexpr int32_t kBitsPerPixelPos = 6;
constexpr int32_t kColourModePos = 7;
constexpr int32_t kColourCountPos = 8;
constexpr int32_t kWidthPos = 9;
constexpr int32_t kHeightPos = 11;
constexpr int32_t kCompressionPos = 13;
constexpr int32_t kDataLengthPos = 14;
constexpr int32_t kPalettePos = 17;
constexpr int32_t kBytesPerEntry = 3;
constexpr uint32_t kMaxLevel = 31;

bool headerValid(const ViewerState &viewer) {
  return beginsWith(viewer.inputFile, kMagic) && readWord(viewer.inputFile, kHeaderLengthPos) == kHeaderLength;
}

void ReadG9bPalette(ViewerState &viewer) {
  for (size_t i = 0; i < viewer.colourCount; ++i) {
    std::array<uint8_t, kBytesPerEntry> levels{};
    readBytes(viewer.inputFile, viewer.paletteFilePos, levels);
    const auto shown = [](uint32_t level) { return (level & kMaxLevel) * 255 / kMaxLevel; };
    viewer.palette[i] = packColour(shown(levels[0]), shown(levels[1]), shown(levels[2]));
    viewer.paletteFilePos += kBytesPerEntry;
  }
}

// Loads the palette. Returns the position of the pixels.
int32_t takePalette(ViewerState &viewer) {
  switch (viewer.colourCount) {
  case 0: viewer.hasPalette = kFalse; return kPalettePos;
  case 2:
  case 4:
  case 16:
  case 64:
    viewer.hasPalette = kTrue;
    viewer.paletteFilePos = kPalettePos;
    ReadG9bPalette(viewer);
    return viewer.paletteFilePos;
  default: return kPalettePos; // no palette is stored, the old one stays: intended, Load Palette can set it
  }
}

void DepackG9b(ViewerState &viewer) {
  G9bDepacker depacker;
  const int blocks = viewer.packedData[0];
  for (int block = 0; block < blocks; ++block) {
    runPendingEvents(viewer);
    depackG9bBlock(depacker, viewer.packedData, viewer.vram.written(viewer.vram.size()));
    viewer.vram.keepZeroFrom(depacker.written); // the depacker leaves zeros there
  }
}

// Size of the picture in `vram`; 0 if its depth is not drawn.
size_t pictureBytes(const ViewerState &viewer) {
  const uint8_t bits = viewer.bitsPerPixel;
  if (bits != 2 && bits != 4 && bits != 8 && bits != 16) return 0;
  const size_t lineBytes = (size_t{bits} * static_cast<size_t>(viewer.imageWidth) + 7) / 8;
  return lineBytes * static_cast<size_t>(viewer.imageHeight);
}

} // namespace

bool LoadG9bPicture(ViewerState &viewer) {
  const InputFile &file = viewer.inputFile;
  const int32_t width = readWord(file, kWidthPos);
  const int32_t height = readWord(file, kHeightPos);
  if (!headerValid(viewer) || !pictureFits(width, height)) return reportNotValid(viewer);
  describePicture(viewer, {.bitsPerPixel = readByte(file, kBitsPerPixelPos),
                           .colourMode = readByte(file, kColourModePos),
                           .colourCount = readByte(file, kColourCountPos),
                           .isPacked = kKept,
                           .imageWidth = width,
                           .imageHeight = height});
  const uint8_t compression = readByte(file, kCompressionPos);
  if (compression >= kCompressions) return reportNotValid(viewer);
  viewer.isPacked = toFlag(compression == 1);
  const int32_t dataPos = takePalette(viewer);
  showPictureInfo(viewer);
  const size_t needed = std::max(kVideoMemoryBytes, pictureBytes(viewer));
  // A literal takes 9 bits per byte; the rest is room for empty blocks.
  const size_t maxPacked = needed + needed / 4;
  const auto stored = static_cast<size_t>(std::max<int64_t>(0, inputFileLength(file) - dataPos + 1));
  const size_t packed = viewer.isPacked == kTrue ? std::min(stored, maxPacked) : 0;
  if (!reserve(viewer.vram, needed) || !reserve(viewer.packedData, packed)) return reportNoMemory(viewer);
  if (viewer.isPacked == kTrue) {
    clearVram(viewer, needed);
    loadPackedData(viewer, dataPos, packed);
    DepackG9b(viewer);
  } else {
    loadVram(viewer, dataPos, needed);
  }
  return true;
}

std::string g9bDetails(const ViewerState &viewer) {
  const InputFile &file = viewer.inputFile;
  const uint32_t dataLength = readWord(file, kDataLengthPos) + (uint32_t{readByte(file, kDataLengthPos + 2)} << 16);
  std::string text = "Pixel data:\t" + withThousandsSeparators(dataLength) + " bytes by the header";
  if (viewer.isPacked == kTrue) text += ", " + std::to_string(viewer.packedData[0]) + " blocks";
  return text + '\n';
}

void RenderG9b16(ViewerState &viewer) {
  const auto start = static_cast<size_t>(viewer.vramPos);
  if (start > viewer.vram.size() || viewer.frameBits.size() > (viewer.vram.size() - start) / 2) return blacken(viewer);
  const uint8_t *source = viewer.vram.data() + start;
  for (uint32_t &pixel : viewer.frameBits) {
    const uint32_t word = source[0] + 256U * source[1];
    pixel = packColour((word & 0x3E0) / 4, (word & 0x7C00) / 128, (word & 0x1F) * 8);
    source += 2;
  }
  viewer.vramPos += static_cast<int32_t>(viewer.frameBits.size() * 2);
}
