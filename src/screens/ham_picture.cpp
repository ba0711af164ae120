#include "screens/ham_picture.h"

#include "state/labels.h"
#include "state/palette.h"

#include <string_view>

//  offset  size  field            rule
//       0     3  magic            "HAM"
//       3     1  version          1
//       4     1  marker           0x20
//       5     1  storage          0 raw, 1 and 2 packed; only shown, never depacked
//       7     1  interlace        1 doubles the height
//       8     2  width            512
//      10     2  height           below 241
//      16     4  palette block of the even lines, as an offset in the file
//      20     4  palette block of the odd lines
//      24     4  pixels of the even lines
//      28     4  pixels of the odd lines
// Numbers are little-endian and unsigned.
// A palette block: 16 start colours of 2 bytes, then two changes for each line of the page, each 3 bytes: entry,
// colour. A colour: red (bits 7-4) and blue (bits 3-0), then green (bits 3-0), levels 0 to 7. Pixels: 256 bytes a line,
// the left pixel in the high nibble.

namespace {

constexpr std::string_view kMagic = "HAM";
constexpr uint8_t kVersion = 1;
constexpr uint8_t kMarker = 0x20;
constexpr uint8_t kStorageModes = 3;
constexpr int32_t kWidth = 512;
constexpr int32_t kHeightLimit = 241;

constexpr int32_t kVersionPos = 4;
constexpr int32_t kMarkerPos = 5;
constexpr int32_t kStoragePos = 6;
constexpr int32_t kInterlacePos = 8;
constexpr int32_t kWidthPos = 9;
constexpr int32_t kHeightPos = 11;
constexpr std::array<int32_t, 2> kPaletteOffsetPos = {17, 21};
constexpr std::array<int32_t, 2> kPixelsOffsetPos = {25, 29};

constexpr size_t kMaxLines = 240; // of a page
constexpr size_t kLineBytes = kWidth / 2;
constexpr size_t kStartColours = 16;
constexpr size_t kStartPaletteBytes = kStartColours * 2;
constexpr size_t kChangeBytes = 3;
constexpr size_t kChangesPerLine = 2;

bool headerValid(const ViewerState &viewer) {
  const InputFile &file = viewer.inputFile;
  return beginsWith(file, kMagic) && readByte(file, kVersionPos) == kVersion && readByte(file, kMarkerPos) == kMarker &&
         readByte(file, kStoragePos) < kStorageModes;
}

void loadBlock(const ViewerState &viewer, int32_t offsetPos, size_t capacity, std::vector<uint8_t> &block) {
  const int64_t offset =
      readWord(viewer.inputFile, offsetPos) + (int64_t{readWord(viewer.inputFile, offsetPos + 2)} << 16);
  block.resize(capacity);
  readBytes(viewer.inputFile, offset + 1, block);
}

// Levels above 7 are invalid; they are masked, so no channel overflows into the next.
uint32_t colourAt(const uint8_t *bytes) {
  return packColour(fileLevel(bytes[0] >> 4 & 7), fileLevel(bytes[1] & 7), fileLevel(bytes[0] & 7));
}

// Draws the lines of one page; the changes of a line apply from the page's next line on.
void renderPage(ViewerState &viewer, size_t page, size_t lines) {
  const HamPage &source = viewer.hamPages[page];
  const auto height = static_cast<size_t>(viewer.frameHeight);
  for (size_t i = 0; i < kStartColours; ++i) viewer.palette[i] = colourAt(&source.palette[i * 2]);
  viewer.vramPos = 0;
  for (size_t y = 0; y < lines; ++y) {
    const uint8_t *bytes = &source.pixels[y * kLineBytes];
    const size_t line = 2 * y + page;
    if (line < height) {
      uint32_t *target = viewer.frameBits.data() + line * kWidth;
      for (size_t x = 0; x < kLineBytes; ++x) {
        *target++ = viewer.palette[bytes[x] >> 4];
        *target++ = viewer.palette[bytes[x] & 0x0F];
      }
    }
    viewer.vramPos += kLineBytes;
    const uint8_t *change = &source.palette[kStartPaletteBytes + y * kChangesPerLine * kChangeBytes];
    for (size_t i = 0; i < kChangesPerLine; ++i, change += kChangeBytes)
      viewer.palette[change[0]] = colourAt(change + 1);
  }
}

} // namespace

bool LoadHamPicture(ViewerState &viewer) {
  if (!headerValid(viewer)) return reportNotValid(viewer);
  const InputFile &file = viewer.inputFile;
  viewer.bitsPerPixel = 4;
  viewer.colourMode = 0;
  viewer.colourCount = kStartColours;
  viewer.hasPalette = kTrue;
  viewer.isPacked = toFlag(readByte(file, kStoragePos) != 0);
  const int32_t height = readWord(file, kHeightPos);
  if (readWord(file, kWidthPos) != kWidth ||
      height >= kHeightLimit) // the fields above stay: intended, they describe the refused file
    return reportNotValid(viewer);
  viewer.imageWidth = kWidth;
  viewer.imageHeight = readByte(file, kInterlacePos) == 1 ? height * 2 : height;
  showPictureInfo(viewer);
  viewer.window.Label4 = "Loading...";
  for (size_t page = 0; page < viewer.hamPages.size(); ++page) {
    constexpr size_t kPaletteBytes = kStartPaletteBytes + kMaxLines * kChangesPerLine * kChangeBytes;
    loadBlock(viewer, kPaletteOffsetPos[page], kPaletteBytes, viewer.hamPages[page].palette);
    loadBlock(viewer, kPixelsOffsetPos[page], kMaxLines * kLineBytes, viewer.hamPages[page].pixels);
  }
  return true;
}

std::string hamDetails(const ViewerState &viewer) {
  const bool interlaced = readByte(viewer.inputFile, kInterlacePos) == 1;
  return "Storage mode:\t" + std::to_string(readByte(viewer.inputFile, kStoragePos)) + "\nInterlace:\t" +
         (interlaced ? "yes" : "no") + "\nPalette changes:\t2 after each line\n";
}

void RenderHamPicture(ViewerState &viewer) {
  if (viewer.frameWidth != kWidth || viewer.frameHeight < 0 || viewer.hamPages[0].pixels.empty()) return;
  const int32_t lines = roundHalfEven(viewer.frameHeight / 2.0 - 1) + 1;
  if (lines > static_cast<int32_t>(kMaxLines)) return;
  blacken(viewer); // a last line beyond both pages stays black
  for (size_t page = 0; page < viewer.hamPages.size(); ++page) renderPage(viewer, page, static_cast<size_t>(lines));
}
