#include "encoders.h"

namespace samples {

namespace {

constexpr int kCellColumns = 32, kCellRows = 24, kRowsOfAThird = 8;
constexpr std::size_t kNameTable = 0x1800, kColourTable = 0x2000, kPatternScreenSize = 0x3800;

// Eight pattern bytes, then the colour byte of each.
using Cell = std::array<std::uint8_t, 16>;

Cell encodeCell(const IndexedPicture &picture, int left, int top) {
  Cell cell{};
  for (std::size_t line = 0; line < 8; ++line) {
    const std::uint8_t *pixels = &picture.at(left, top + static_cast<int>(line));
    const std::uint8_t background = pixels[0];
    std::uint8_t foreground = background;
    int bits = 0;
    for (int x = 0; x < 8; ++x) {
      bits = bits * 2 + (pixels[x] != background);
      if (pixels[x] != background) foreground = pixels[x];
    }
    cell[line] = byteOf(bits);
    cell[line + 8] = byteOf(foreground * 16 + background);
  }
  return cell;
}

// Colours of the YJK groups: 32 levels of luminance in steps of 1/256.
constexpr int kLevel = 256;

struct Levels {
  int luminance, j, k;
};

Levels levelsOf(Rgb pixel) {
  const int red = pixel.red * 31 * kLevel / 255, green = pixel.green * 31 * kLevel / 255,
            blue = pixel.blue * 31 * kLevel / 255;
  const int luminance = (2 * red + green + 4 * blue) / 8;
  return {luminance, red - luminance, green - luminance};
}

// The mean of `count` differences, -32 to 31.
int meanChroma(int sum, int count) {
  const int step = std::max(count, 1) * kLevel;
  return std::clamp((sum + 64 * step + step / 2) / step - 64, -32, 31);
}

// Luminance goes in steps of `step`.
void encodeGroup(const TruePicture &picture, const IndexedPicture &overlay, int left, int y, int step, Bytes &bytes) {
  int sumJ = 0, sumK = 0, count = 0;
  for (int x = left; x < left + 4; ++x) {
    if (overlay.at(x, y) != kSeeThrough) continue;
    const Levels levels = levelsOf(picture.at(x, y));
    sumJ += levels.j;
    sumK += levels.k;
    ++count;
  }
  const int j = meanChroma(sumJ, count), k = meanChroma(sumK, count);
  const std::array<int, 4> parts = {k & 7, k >> 3 & 7, j & 7, j >> 3 & 7};
  for (int i = 0; i < 4; ++i) {
    const std::uint8_t entry = overlay.at(left + i, y);
    const int lift = threshold(left + i, y) * kLevel * step / 64;
    const int luminance = (levelsOf(picture.at(left + i, y)).luminance + lift) / kLevel / step * step;
    const int high = entry == kSeeThrough ? std::min(luminance, 32 - step) * 8 : entry * 16 + 8;
    bytes.push_back(byteOf(high + parts[static_cast<std::size_t>(i)]));
  }
}

Bytes encodeGroups(const TruePicture &picture, const IndexedPicture &overlay, int step) {
  Bytes bytes;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x + 4 <= picture.width; x += 4) encodeGroup(picture, overlay, x, y, step, bytes);
  }
  return bytes;
}

Bytes withHeader(int identifier, std::uint16_t end, const Bytes &body) {
  Bytes file = {byteOf(identifier)};
  appendWords(file, {0, end, 0});
  append(file, body);
  return file;
}

} // namespace

Bytes bloadFile(const Bytes &memory, std::uint16_t end) { return withHeader(0xFE, end, memory); }

Bytes packedBloadFile(const Bytes &memory) {
  Bytes packed;
  for (std::size_t position = 0; position < memory.size();) {
    std::size_t count = 1;
    while (count < 256 && position + count < memory.size() && memory[position + count] == memory[position]) ++count;
    if (count >= 128) packed.push_back(0);
    append(packed, {byteOf(static_cast<int>(count)), memory[position]});
    position += count;
  }
  return withHeader(0xFD, static_cast<std::uint16_t>(packed.size() - 1), packed);
}

Bytes copyFile(int width, int height, const Bytes &pixels) {
  Bytes file;
  appendWords(file, {width, height});
  append(file, pixels);
  return file;
}

Bytes packBits(const Bytes &entries, int bits) {
  const auto perByte = static_cast<std::size_t>(8 / bits);
  Bytes bytes((entries.size() + perByte - 1) / perByte);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const int shift = 8 - bits * static_cast<int>(i % perByte + 1);
    bytes[i / perByte] = byteOf(bytes[i / perByte] | entries[i] << shift);
  }
  return bytes;
}

Bytes packSplitBits(const Bytes &entries) {
  Bytes bytes((entries.size() + 3) / 4);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const int low = entries[i] & 1, high = entries[i] >> 1;
    bytes[i / 4] = byteOf(bytes[i / 4] | (low << 7 | high << 3) >> (i % 4));
  }
  return bytes;
}

Bytes paletteBytes(const Palette &palette) {
  Bytes bytes;
  for (const int levels : palette) append(bytes, {byteOf((levels >> 6) * 16 + (levels & 7)), byteOf(levels >> 3 & 7)});
  return bytes;
}

Bytes patternScreen(const IndexedPicture &picture) {
  Bytes memory(kPatternScreenSize);
  std::vector<Cell> cells; // of a third of the screen, each once
  for (int row = 0; row < kCellRows; ++row) {
    if (row % kRowsOfAThird == 0) cells.clear();
    for (int column = 0; column < kCellColumns; ++column) {
      const Cell cell = encodeCell(picture, column * 8, row * 8);
      const auto found = std::find(cells.begin(), cells.end(), cell);
      const auto number = static_cast<std::size_t>(found - cells.begin());
      memory[kNameTable + static_cast<std::size_t>(row * kCellColumns + column)] = byteOf(static_cast<int>(number));
      if (found != cells.end()) continue;
      cells.push_back(cell);
      const std::size_t at = (static_cast<std::size_t>(row / kRowsOfAThird) * 256 + number) * 8;
      place(memory, at, Bytes(cell.begin(), cell.begin() + 8));
      place(memory, kColourTable + at, Bytes(cell.begin() + 8, cell.end()));
    }
  }
  return memory;
}

Bytes encodeGrb(const TruePicture &picture) {
  Bytes bytes;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const Rgb pixel = picture.at(x, y);
      const int lift = threshold(x, y) * 4;
      const auto level = [lift](int value, int top) { return (value * top + lift) / 255; };
      bytes.push_back(byteOf(level(pixel.green, 7) * 32 + level(pixel.red, 7) * 4 + level(pixel.blue, 3)));
    }
  }
  return bytes;
}

Bytes encodeYjk(const TruePicture &picture) {
  return encodeGroups(picture, IndexedPicture(picture.width, picture.height, kSeeThrough), 1);
}

Bytes encodeYae(const TruePicture &picture, const IndexedPicture &overlay) { return encodeGroups(picture, overlay, 2); }

} // namespace samples
