#include "encoders.h"

#include <algorithm>
#include <array>

#include "colour_reduction.h"

namespace samples {

namespace {

constexpr std::size_t kNameTable = 0x1800;
constexpr std::size_t kColourTable = 0x2000;
constexpr std::size_t kPatternScreenSize = 0x3800;
constexpr int kCellColumns = 32;
constexpr int kCellRows = 24;
constexpr int kThirdRows = 8; // rows of cells that share 256 patterns

// Colours of the YJK encoder: 32 luminance levels in steps of 1/256.
constexpr int kLevelUnit = 256;
constexpr int kTopLevel = 31 * kLevelUnit;

struct Chroma {
  int j = 0, k = 0;
};

struct LevelColour {
  int red = 0, green = 0, blue = 0; // in kLevelUnit
};

// Pattern bytes of the eight lines of a cell, then their colour bytes.
using CellBytes = std::array<std::uint8_t, 16>;

CellBytes encodeCell(const IndexedPicture &picture, int column, int row) {
  CellBytes cell{};
  for (int line = 0; line < 8; ++line) {
    const auto *pixels = picture.indexes.data() + (row * 8 + line) * picture.width + column * 8;
    const std::uint8_t background = pixels[0];
    std::uint8_t foreground = background;
    int bits = 0;
    for (int x = 0; x < 8; ++x) {
      bits *= 2;
      if (pixels[x] != background) {
        foreground = foreground == background ? pixels[x] : foreground;
        ++bits;
      }
    }
    cell[static_cast<std::size_t>(line)] = static_cast<std::uint8_t>(bits);
    cell[static_cast<std::size_t>(line) + 8] = static_cast<std::uint8_t>(foreground * 16 + background);
  }
  return cell;
}

LevelColour decodeLevels(int y, Chroma chroma) {
  const int quarter = kLevelUnit / 4;
  return {std::clamp((y + chroma.j) * kLevelUnit, 0, kTopLevel), std::clamp((y + chroma.k) * kLevelUnit, 0, kTopLevel),
          std::clamp((5 * y - 2 * chroma.j - chroma.k) * quarter, 0, kTopLevel)};
}

// Squared distance, weighted roughly as the eye does.
int distanceOf(LevelColour a, LevelColour b) {
  const int red = (a.red - b.red) / 16, green = (a.green - b.green) / 16, blue = (a.blue - b.blue) / 16;
  return 3 * red * red + 5 * green * green + 2 * blue * blue;
}

// The pixel in levels, lifted or lowered by the ordered pattern so that steps of luminance mix.
LevelColour targetLevels(const TruePicture &picture, int x, int y, int step) {
  const Rgb pixel = picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
  const int lift = (orderedThreshold(x, y) * 2 - 63) * kLevelUnit * step / 160;
  return {std::clamp(pixel.red * kTopLevel / 255 + lift, 0, kTopLevel),
          std::clamp(pixel.green * kTopLevel / 255 + lift, 0, kTopLevel),
          std::clamp(pixel.blue * kTopLevel / 255 + lift, 0, kTopLevel)};
}

struct LuminanceChoice {
  int y = 0, error = 0;
};

LuminanceChoice bestLuminance(LevelColour target, Chroma chroma, int step) {
  // Y = R/4 + G/8 + B/2 inverts the colour rule; clamped channels can pull the best Y away from it.
  const int guess = (2 * target.red + target.green + 4 * target.blue) / (8 * kLevelUnit) / step * step;
  LuminanceChoice best{0, -1};
  for (int y = guess - 2 * step; y <= guess + 3 * step; y += step) {
    if (y < 0 || y > 31) continue;
    const int error = distanceOf(decodeLevels(y, chroma), target);
    if (best.error < 0 || error < best.error) best = {y, error};
  }
  return best;
}

// One group; a pixel with a palette index takes no part in the choice of J and K.
void encodeGroup(const std::array<LevelColour, 4> &targets, const std::uint8_t *overlay, int step,
                 std::uint8_t *group) {
  int sumJ = 0, sumK = 0, count = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    if (overlay[i] != kSeeThrough) continue;
    const LevelColour target = targets[i];
    const int y = (2 * target.red + target.green + 4 * target.blue) / 8;
    sumJ += target.red - y;
    sumK += target.green - y;
    ++count;
  }
  const int divisor = std::max(count, 1) * kLevelUnit;
  const Chroma middle{sumJ / divisor, sumK / divisor};
  std::array<int, 4> bestY{};
  Chroma bestChroma;
  int bestError = -1;
  for (int j = middle.j - 1; j <= middle.j + 1; ++j) {
    for (int k = middle.k - 1; k <= middle.k + 1; ++k) {
      const Chroma chroma{std::clamp(j, -32, 31), std::clamp(k, -32, 31)};
      std::array<int, 4> luminances{};
      int error = 0;
      for (std::size_t i = 0; i < 4; ++i) {
        if (overlay[i] != kSeeThrough) continue;
        const LuminanceChoice choice = bestLuminance(targets[i], chroma, step);
        luminances[i] = choice.y;
        error += choice.error;
      }
      if (bestError < 0 || error < bestError) {
        bestError = error;
        bestChroma = chroma;
        bestY = luminances;
      }
    }
  }
  const std::array<int, 4> lowBits = {bestChroma.k & 7, (bestChroma.k >> 3) & 7, bestChroma.j & 7,
                                      (bestChroma.j >> 3) & 7};
  for (std::size_t i = 0; i < 4; ++i) {
    const int highBits = overlay[i] == kSeeThrough ? bestY[i] * 8 : overlay[i] * 16 + 8;
    group[i] = static_cast<std::uint8_t>(highBits + lowBits[i]);
  }
}

Bytes encodeGroups(const TruePicture &picture, const IndexedPicture &overlay, int step) {
  Bytes bytes(picture.pixels.size());
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; x += 4) {
      std::array<LevelColour, 4> targets;
      for (int i = 0; i < 4; ++i) {
        targets[static_cast<std::size_t>(i)] = targetLevels(picture, x + i, y, step);
      }
      const int position = y * picture.width + x;
      encodeGroup(targets, overlay.indexes.data() + position, step, bytes.data() + position);
    }
  }
  return bytes;
}

} // namespace

Bytes bloadHeader(std::uint8_t identifier, std::uint16_t start, std::uint16_t end, std::uint16_t execution) {
  Bytes header = {identifier};
  for (const std::uint16_t word : {start, end, execution}) {
    header.push_back(static_cast<std::uint8_t>(word & 0xFF));
    header.push_back(static_cast<std::uint8_t>(word >> 8));
  }
  return header;
}

Bytes bloadFile(const Bytes &memory, std::uint16_t end) {
  Bytes file = bloadHeader(kPlainIdentifier, 0, end, 0);
  file.insert(file.end(), memory.begin(), memory.end());
  return file;
}

Bytes packedBloadFile(const Bytes &memory) {
  const Bytes packed = packRunLength(memory);
  Bytes file = bloadHeader(kPackedIdentifier, 0, static_cast<std::uint16_t>((packed.size() - 1) & 0xFFFF), 0);
  file.insert(file.end(), packed.begin(), packed.end());
  return file;
}

void appendWord(Bytes &bytes, int value) {
  bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8 & 0xFF));
}

void placeBytes(Bytes &memory, std::size_t address, const Bytes &bytes) {
  memory.resize(std::max(memory.size(), address + bytes.size()));
  std::copy(bytes.begin(), bytes.end(), memory.begin() + static_cast<std::ptrdiff_t>(address));
}

Bytes packNibbles(const Bytes &indexes) {
  Bytes bytes(indexes.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(indexes[2 * i] * 16 + indexes[2 * i + 1]);
  }
  return bytes;
}

Bytes packCrumbs(const Bytes &indexes) {
  Bytes bytes(indexes.size() / 4);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(indexes[4 * i] * 64 + indexes[4 * i + 1] * 16 + indexes[4 * i + 2] * 4 +
                                         indexes[4 * i + 3]);
  }
  return bytes;
}

Bytes paletteBytes(const Palette &palette) {
  Bytes bytes;
  for (const Levels levels : palette) {
    bytes.push_back(static_cast<std::uint8_t>(levels.red * 16 + levels.blue));
    bytes.push_back(levels.green);
  }
  return bytes;
}

Bytes encodePatternScreen(const IndexedPicture &picture) {
  Bytes memory(kPatternScreenSize);
  std::vector<CellBytes> patterns;
  for (int row = 0; row < kCellRows; ++row) {
    if (row % kThirdRows == 0) patterns.clear();
    const auto third = static_cast<std::size_t>(row / kThirdRows) * 256;
    for (int column = 0; column < kCellColumns; ++column) {
      const CellBytes cell = encodeCell(picture, column, row);
      const auto found = std::find(patterns.begin(), patterns.end(), cell);
      const auto number = static_cast<std::size_t>(found - patterns.begin());
      memory[kNameTable + static_cast<std::size_t>(row * kCellColumns + column)] = static_cast<std::uint8_t>(number);
      if (found != patterns.end()) continue;
      patterns.push_back(cell);
      for (std::size_t line = 0; line < 8; ++line) {
        memory[(third + number) * 8 + line] = cell[line];
        memory[kColourTable + (third + number) * 8 + line] = cell[line + 8];
      }
    }
  }
  return memory;
}

Bytes encodeGrb332(const TruePicture &picture) {
  Bytes bytes(picture.pixels.size());
  diffuseErrors(picture, [&bytes](std::size_t position, Rgb wanted) -> Rgb {
    const int green = std::clamp((wanted.green + 18) / 36, 0, 7);
    const int red = std::clamp((wanted.red + 18) / 36, 0, 7);
    const int blue = std::clamp((wanted.blue + 42) / 85, 0, 3);
    bytes[position] = static_cast<std::uint8_t>(green * 32 + red * 4 + blue);
    return {red * 36, green * 36, blue * 85};
  });
  return bytes;
}

Bytes encodeYjk(const TruePicture &picture) {
  return encodeGroups(picture, blankPicture(picture.width, picture.height, kSeeThrough), 1);
}

Bytes encodeYae(const TruePicture &picture, const IndexedPicture &overlay) { return encodeGroups(picture, overlay, 2); }

Bytes packRunLength(const Bytes &bytes) {
  Bytes packed;
  for (std::size_t position = 0; position < bytes.size();) {
    std::size_t count = 1;
    while (count < 256 && position + count < bytes.size() && bytes[position + count] == bytes[position]) {
      ++count;
    }
    if (count >= 128) packed.push_back(0);
    packed.push_back(static_cast<std::uint8_t>(count & 0xFF));
    packed.push_back(bytes[position]);
    position += count;
  }
  return packed;
}

} // namespace samples
