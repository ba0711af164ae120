#include "state/palette.h"

#include <algorithm>
#include <array>

namespace {

constexpr size_t kStandardEntries = 16;
constexpr size_t kBytesPerEntry = 2;
constexpr uint8_t kMaxLevel = 7;

// The V9938's standard colours. Levels are truncated (2 is 72, 4 is 145, 6 is 218) while file colours are rounded:
// intended, so a standard palette can be told from a stored one. Entry 1 is a very dark grey: intended, in the read-out
// it differs from entry 0.
// clang-format off
constexpr std::array<uint32_t, kStandardEntries> kDefaultPalette{
    packColour(  0,   0,   0), packColour(  8,   8,   8), packColour( 36, 218,  36), packColour(109, 255, 109),
    packColour( 36,  36, 255), packColour( 72, 109, 255), packColour(182,  36,  36), packColour( 72, 218, 255),
    packColour(255,  36,  36), packColour(255, 109, 109), packColour(218, 218,  36), packColour(218, 218, 145),
    packColour( 36, 145,  36), packColour(218,  72, 182), packColour(182, 182, 182), packColour(255, 255, 255),
};

// clang-format on

constexpr std::array<uint8_t, kMaxLevel + 1> kLevels{0, 36, 73, 109, 146, 182, 219, 255};

bool redBlueValid(uint8_t redBlue) { return (redBlue >> 4) <= kMaxLevel && (redBlue & 0x0F) <= kMaxLevel; }

} // namespace

// clang-format off
// Each channel is off, half or full.
constexpr std::array<uint32_t, 16> kSymbosPalette{
    packColour(255, 255, 145), packColour(  0,   0,   0), packColour(255, 145,   0), packColour(145,   0,   0),
    packColour(  0, 255, 255), packColour(  0,   0, 145), packColour(145, 145, 255), packColour(  0,   0, 255),
    packColour(255, 255, 255), packColour(  0, 145,   0), packColour(  0, 255,   0), packColour(255,   0, 255),
    packColour(255, 255,   0), packColour(145, 145, 145), packColour(255, 145, 145), packColour(255,   0,   0),
};
// clang-format on

uint8_t fileLevel(int level) { return kLevels[static_cast<size_t>(level)]; }

std::optional<uint32_t> fileColour(uint8_t redBlue, uint8_t green) {
  if (!redBlueValid(redBlue) || green > kMaxLevel) return std::nullopt;
  return packColour(fileLevel(redBlue >> 4), fileLevel(green), fileLevel(redBlue & 0x0F));
}

bool hasShortPalette(const ViewerState &viewer) {
  return viewer.picture.hasPalette == kTrue && viewer.picture.colourCount <= kShortPaletteEntries;
}

void setDefaultPalette(ViewerState &viewer) {
  std::copy(kDefaultPalette.begin(), kDefaultPalette.end(), viewer.palette.begin());
}

size_t takeFileColours(ViewerState &viewer, std::span<const uint8_t> bytes) {
  uint32_t sum = 0; // 256 words below 2^24 fit 32 bits
  const size_t count = bytes.size() / kBytesPerEntry;
  for (size_t i = 0; i < count; ++i) {
    const auto colour = fileColour(bytes[i * kBytesPerEntry], bytes[i * kBytesPerEntry + 1]);
    if (!colour) return i;
    viewer.palette[i] = *colour;
    sum += *colour;
  }
  if (sum == 0) setDefaultPalette(viewer); // the file was saved without a palette
  return count;
}

void readFilePalette(ViewerState &viewer) {
  std::array<uint8_t, kPaletteEntries * kBytesPerEntry> buffer{};
  const auto bytes = std::span(buffer).first(size_t{viewer.colourCount} * kBytesPerEntry);
  readBytes(viewer.inputFile, viewer.paletteFilePos, bytes);
  const size_t valid = takeFileColours(viewer, bytes) * kBytesPerEntry;
  viewer.paletteFilePos += static_cast<int32_t>(valid);
  if (valid == bytes.size()) return;
  if (redBlueValid(bytes[valid])) viewer.paletteFilePos += 1;
  setDefaultPalette(viewer);
}
