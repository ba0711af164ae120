#include "g9b_encoder.h"

#include <algorithm>

#include "colour_reduction.h"
#include "encoders.h"

namespace samples {

namespace {

constexpr int kHeaderSize = 11; // bytes behind the field of the size itself
constexpr std::size_t kFarthest = 2048;
constexpr std::size_t kLongest = 65536;
constexpr int kTries = 48; // earlier places that are looked at for a copy

// Bits in bytes that stand where the first bit of each is needed, between the bytes of literals and offsets.
class BitStream {
public:
  void putBit(bool bit) {
    if (used_ == 8) {
      flags_ = bytes_.size();
      bytes_.push_back(0);
      used_ = 0;
    }
    if (bit) bytes_[flags_] = static_cast<std::uint8_t>(bytes_[flags_] | 0x80 >> used_);
    ++used_;
  }

  void putByte(std::size_t byte) { bytes_.push_back(static_cast<std::uint8_t>(byte)); }

  void putLiteral(std::uint8_t byte) {
    putBit(false);
    putByte(byte);
  }

  void putCopy(std::size_t length, std::size_t distance) {
    putBit(true);
    const std::size_t value = length - 1;
    std::size_t top = 1;
    while (top * 2 <= value) top *= 2;
    for (std::size_t bit = top / 2; bit > 0; bit /= 2) {
      putBit(true);
      putBit((value & bit) != 0);
    }
    putBit(false);
    const std::size_t offset = distance - 1;
    if (offset < 128) {
      putByte(offset);
      return;
    }
    putByte(128 + offset % 128);
    for (const std::size_t bit : {1024u, 512u, 256u, 128u}) putBit((offset & bit) != 0);
  }

  // A length of more than sixteen bits.
  void putEnd() {
    putBit(true);
    for (int i = 0; i < 16; ++i) {
      putBit(true);
      putBit(false);
    }
  }

  const Bytes &bytes() const { return bytes_; }

private:
  Bytes bytes_;
  std::size_t flags_ = 0;
  int used_ = 8;
};

// The earlier places of each pair of bytes, the latest first.
class EarlierPlaces {
public:
  explicit EarlierPlaces(const Bytes &bytes) : bytes_(bytes), latest_(65536, kNone), before_(bytes.size(), kNone) {}

  void add(std::size_t position) {
    if (position + 1 >= bytes_.size()) return;
    std::size_t &latest = latest_[pairAt(position)];
    before_[position] = latest;
    latest = position;
  }

  // Length and distance of the longest copy; a length of 0 when there is none of two bytes or more.
  std::pair<std::size_t, std::size_t> longest(std::size_t position, std::size_t end) const {
    std::pair<std::size_t, std::size_t> best{0, 0};
    if (position + 2 > end) return best;
    std::size_t place = latest_[pairAt(position)];
    for (int tries = 0; tries < kTries && place != kNone && position - place <= kFarthest; ++tries) {
      std::size_t length = 2;
      const std::size_t limit = std::min(end - position, kLongest);
      while (length < limit && bytes_[place + length] == bytes_[position + length]) ++length;
      if (length > best.first) best = {length, position - place};
      if (length == limit) break;
      place = before_[place];
    }
    return best;
  }

private:
  static constexpr std::size_t kNone = SIZE_MAX;

  std::size_t pairAt(std::size_t position) const { return bytes_[position] * 256u + bytes_[position + 1]; }

  const Bytes &bytes_;
  std::vector<std::size_t> latest_, before_;
};

Bytes headerBytes(const G9bHeader &header, const G9bPalette &palette, bool packed, std::size_t dataSize) {
  Bytes file = {'G', '9', 'B'};
  appendWord(file, kHeaderSize);
  for (const int value : {header.bitsPerPixel, header.colourType, static_cast<int>(palette.size())}) {
    file.push_back(static_cast<std::uint8_t>(value));
  }
  appendWord(file, header.width);
  appendWord(file, header.height);
  file.push_back(std::uint8_t{packed});
  appendWord(file, static_cast<int>(dataSize & 0xFFFF));
  file.push_back(static_cast<std::uint8_t>(dataSize >> 16));
  for (const Levels levels : palette) file.insert(file.end(), {levels.red, levels.green, levels.blue});
  return file;
}

} // namespace

Bytes g9bFile(const G9bHeader &header, const G9bPalette &palette, const Bytes &pixels) {
  Bytes file = headerBytes(header, palette, false, pixels.size());
  file.insert(file.end(), pixels.begin(), pixels.end());
  return file;
}

Bytes packedG9bFile(const G9bHeader &header, const G9bPalette &palette, const Bytes &packed) {
  Bytes file = headerBytes(header, palette, true, packed.size());
  file.insert(file.end(), packed.begin(), packed.end());
  return file;
}

Bytes packG9b(const Bytes &bytes, std::size_t blockSize) {
  Bytes packed = {static_cast<std::uint8_t>((bytes.size() + blockSize - 1) / blockSize)};
  EarlierPlaces places(bytes);
  for (std::size_t start = 0; start < bytes.size(); start += blockSize) {
    const std::size_t end = std::min(start + blockSize, bytes.size());
    BitStream stream;
    for (std::size_t position = start; position < end;) {
      const auto [length, distance] = places.longest(position, end);
      // A short copy from afar takes more bits than its literals.
      const bool worthwhile = length > 2 || (length == 2 && distance <= 128);
      if (worthwhile) {
        stream.putCopy(length, distance);
      } else {
        stream.putLiteral(bytes[position]);
      }
      for (const std::size_t next = position + (worthwhile ? length : 1); position < next; ++position) {
        places.add(position);
      }
    }
    stream.putEnd();
    appendWord(packed, static_cast<int>(stream.bytes().size()));
    packed.insert(packed.end(), stream.bytes().begin(), stream.bytes().end());
  }
  return packed;
}

Bytes packHighColour(const TruePicture &picture) {
  Bytes bytes;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const Rgb pixel = picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
      const int lift = orderedThreshold(x, y) / 8;
      const auto level = [lift](int value) { return std::min((value + lift) / 8, 31); };
      appendWord(bytes, level(pixel.green) * 1024 + level(pixel.red) * 32 + level(pixel.blue));
    }
  }
  return bytes;
}

} // namespace samples
