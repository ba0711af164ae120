#include "state/palette.h"

#include <algorithm>
#include <array>

namespace {

constexpr size_t kStandardEntries = 16;
constexpr int32_t kBytesPerEntry = 2;
constexpr uint8_t kHighestLevel = 7;

// The V9938's standard colours with truncated levels (2 is 72, 4 is 145, 6 is 218), so that they differ from file
// colours, which are rounded: intended. Entry 1 is a very dark grey that can be told from entry 0: intended.
// clang-format off
constexpr std::array<uint32_t, kStandardEntries> kDefaultPalette{
    packColour(  0,   0,   0), packColour(  8,   8,   8), packColour( 36, 218,  36), packColour(109, 255, 109),
    packColour( 36,  36, 255), packColour( 72, 109, 255), packColour(182,  36,  36), packColour( 72, 218, 255),
    packColour(255,  36,  36), packColour(255, 109, 109), packColour(218, 218,  36), packColour(218, 218, 145),
    packColour( 36, 145,  36), packColour(218,  72, 182), packColour(182, 182, 182), packColour(255, 255, 255),
};

// Each channel is off, half or full.
constexpr std::array<uint32_t, kStandardEntries> kSymbosPalette{
    packColour(255, 255, 145), packColour(  0,   0,   0), packColour(255, 145,   0), packColour(145,   0,   0),
    packColour(  0, 255, 255), packColour(  0,   0, 145), packColour(145, 145, 255), packColour(  0,   0, 255),
    packColour(255, 255, 255), packColour(  0, 145,   0), packColour(  0, 255,   0), packColour(255,   0, 255),
    packColour(255, 255,   0), packColour(145, 145, 145), packColour(255, 145, 145), packColour(255,   0,   0),
};
// clang-format on

constexpr std::array<uint8_t, kHighestLevel + 1> kLevels{0, 36, 73, 109, 146, 182, 219, 255};

bool redBlueValid(uint8_t redBlue) { return (redBlue >> 4) <= kHighestLevel && (redBlue & 0x0F) <= kHighestLevel; }

} // namespace

uint8_t fileLevel(int level) { return kLevels[static_cast<size_t>(level)]; }

std::optional<uint32_t> fileColour(uint8_t redBlue, uint8_t green) {
  if (!redBlueValid(redBlue) || green > kHighestLevel) return std::nullopt;
  return packColour(fileLevel(redBlue >> 4), fileLevel(green), fileLevel(redBlue & 0x0F));
}

bool hasShortPalette(const ViewerState &viewer) {
  return viewer.hasPalette == kTrue && viewer.colourCount <= kShortPaletteEntries;
}

void setDefaultPalette(ViewerState &viewer) {
  std::copy(kDefaultPalette.begin(), kDefaultPalette.end(), viewer.palette.begin());
}

const std::array<uint32_t, 16> &symbosPalette() { return kSymbosPalette; }

void setSymbosPalette(ViewerState &viewer) {
  std::copy(kSymbosPalette.begin(), kSymbosPalette.end(), viewer.palette.begin());
}

void readFilePalette(ViewerState &viewer) {
  std::array<uint8_t, kPaletteEntries * kBytesPerEntry> bytes{};
  const size_t count = viewer.colourCount;
  readBytes(viewer.inputFile, viewer.paletteFilePos, std::span(bytes).first(count * kBytesPerEntry));

  uint32_t sum = 0;
  for (size_t i = 0; i < count; ++i) {
    const uint8_t redBlue = bytes[i * kBytesPerEntry];
    const uint8_t green = bytes[i * kBytesPerEntry + 1];
    const auto colour = fileColour(redBlue, green);
    if (!colour) {
      if (redBlueValid(redBlue)) viewer.paletteFilePos += 1;
      setDefaultPalette(viewer);
      return;
    }
    viewer.paletteFilePos += kBytesPerEntry;
    viewer.palette[i] = *colour;
    sum += *colour; // at most 256 words below 2^24: stays below 2^32
  }
  if (sum == 0) setDefaultPalette(viewer); // saved without a palette
}
