#include "paint_encoders.h"

#include <algorithm>

#include "copy_encoders.h"
#include "encoders.h"

namespace samples {

namespace {

// Bytes under one control byte: eight mask bytes of eight bytes each.
constexpr std::size_t kMaskSpan = 8;
constexpr std::size_t kControlSpan = 64;

constexpr std::size_t kPageHeaderSize = 384;
constexpr std::size_t kLongestRun = 128;

// A control byte of bits for the masks that are not zero, these masks, then the bytes that are not zero.
Bytes suppressZeros(Bytes bytes) {
  bytes.resize((bytes.size() + kControlSpan - 1) / kControlSpan * kControlSpan);
  Bytes packed;
  for (std::size_t start = 0; start < bytes.size(); start += kControlSpan) {
    Bytes masks, literals;
    int control = 0;
    for (std::size_t group = start; group < start + kControlSpan; group += kMaskSpan) {
      int mask = 0;
      for (std::size_t i = group; i < group + kMaskSpan; ++i) {
        mask = mask * 2 + (bytes[i] != 0);
        if (bytes[i] != 0) literals.push_back(bytes[i]);
      }
      control = control * 2 + (mask != 0);
      if (mask != 0) masks.push_back(static_cast<std::uint8_t>(mask));
    }
    packed.push_back(static_cast<std::uint8_t>(control));
    packed.insert(packed.end(), masks.begin(), masks.end());
    packed.insert(packed.end(), literals.begin(), literals.end());
  }
  return packed;
}

// Twice the value of a half, rounded to the nearest whole number, from a tie to the even one.
int roundedHalf(int twice) {
  const int floored = twice / 2;
  return twice % 2 != 0 && floored % 2 != 0 ? floored + 1 : floored;
}

} // namespace

Bytes datFile(const IndexedPicture &picture, const Palette &palette) {
  Bytes even;
  for (int y = 0; y < picture.height; ++y) {
    const auto line = picture.indexes.begin() + y * picture.width;
    even.insert(even.end(), line, line + picture.width / 2 * 2);
  }
  Bytes file = copyFile(picture.width, picture.height, packNibbles(even));
  // The position counts from 1.
  const int position = roundedHalf(picture.width * picture.height + 2 * 5);
  placeBytes(file, static_cast<std::size_t>(position - 1), paletteBytes(palette));
  return file;
}

Bytes cmpFile(const IndexedPicture &picture, int directLines) {
  const auto lineSize = static_cast<std::size_t>(picture.width / 2);
  const Bytes bytes = packNibbles(picture.indexes);
  Bytes coded = bytes;
  const std::size_t direct = directLines == 0 ? bytes.size() : static_cast<std::size_t>(directLines) * lineSize;
  for (std::size_t i = direct; i < bytes.size(); ++i) {
    coded[i] = static_cast<std::uint8_t>(bytes[i] ^ bytes[i - lineSize]);
  }
  Bytes file = {static_cast<std::uint8_t>(lineSize), static_cast<std::uint8_t>(picture.height),
                static_cast<std::uint8_t>(directLines)};
  const Bytes packed = suppressZeros(coded);
  file.insert(file.end(), packed.begin(), packed.end());
  return file;
}

Bytes pctFile(const Bytes &packed) {
  Bytes file(kPageHeaderSize);
  file[8] = 'P';
  file[16] = 'R';
  file[18] = 'S';
  file[23] = 'N';
  file.insert(file.end(), packed.begin(), packed.end());
  return file;
}

Bytes packPageRuns(const Bytes &bytes) {
  Bytes packed, literals;
  const auto flush = [&] {
    if (literals.empty()) return;
    packed.push_back(static_cast<std::uint8_t>(literals.size() - 1));
    packed.insert(packed.end(), literals.begin(), literals.end());
    literals.clear();
  };
  for (std::size_t position = 0; position < bytes.size();) {
    std::size_t count = 1;
    while (count < kLongestRun && position + count < bytes.size() && bytes[position + count] == bytes[position]) {
      ++count;
    }
    if (count < 3) {
      literals.push_back(bytes[position++]);
      if (literals.size() == kLongestRun) flush();
      continue;
    }
    flush();
    packed.push_back(static_cast<std::uint8_t>(127 + count));
    packed.push_back(bytes[position]);
    position += count;
  }
  flush();
  return packed;
}

Bytes pageBytes(const IndexedPicture &page) {
  Bytes bytes(page.indexes.size() / 8);
  for (std::size_t i = 0; i < page.indexes.size(); ++i) {
    const std::size_t bit = i % 8 < 4 ? 3 - i % 8 : 11 - i % 8;
    if (page.indexes[i] != 0) bytes[i / 8] = static_cast<std::uint8_t>(bytes[i / 8] | 1 << bit);
  }
  return bytes;
}

} // namespace samples
