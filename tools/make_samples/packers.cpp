#include "packers.h"

#include <algorithm>
#include <array>

namespace samples {

namespace {

constexpr std::size_t kFarthest = 2048, kLongest = 65536; // of a G9B copy

// Literals and offsets as whole bytes. A byte of bits precedes them where its first bit is needed.
struct BitStream {
  Bytes bytes = {};
  std::size_t bitByte = 0;
  int used = 8; // bits of that byte

  void putBit(bool bit) {
    if (used == 8) {
      bitByte = bytes.size();
      bytes.push_back(0);
      used = 0;
    }
    bytes[bitByte] = byteOf(bytes[bitByte] | (bit ? 0x80 >> used : 0));
    ++used;
  }

  // The bits below the highest one of `value`, each behind a 1; then a 0.
  void putLength(std::size_t value) {
    std::size_t top = 1;
    while (top * 2 <= value) top *= 2;
    for (std::size_t bit = top / 2; bit > 0; bit /= 2) {
      putBit(true);
      putBit((value & bit) != 0);
    }
    putBit(false);
  }

  void putLiteral(std::uint8_t byte) {
    putBit(false);
    bytes.push_back(byte);
  }

  void putCopy(std::size_t length, std::size_t distance) {
    putBit(true);
    putLength(length - 1);
    const std::size_t offset = distance - 1;
    bytes.push_back(byteOf(static_cast<int>(offset < 128 ? offset : 128 + offset % 128)));
    if (offset < 128) return;
    for (const std::size_t bit : {1024u, 512u, 256u, 128u}) putBit((offset & bit) != 0);
  }

  void putEnd() {
    putBit(true);
    for (int i = 0; i < 32; ++i) putBit(i % 2 == 0); // a length of 65536 that no 0 ends
  }
};

// A copy from the place where the same two bytes came last.
struct Copy {
  std::size_t length = 0, distance = 0;

  // A short copy from afar takes more bits than its literals.
  bool pays() const { return length > 2 || (length == 2 && distance <= 128); }
};

Copy latestCopy(const Bytes &bytes, std::size_t at, std::size_t end, std::size_t earlier) {
  if (earlier == SIZE_MAX || at - earlier > kFarthest) return {};
  std::size_t length = 0;
  while (at + length < end && length < kLongest && bytes[earlier + length] == bytes[at + length]) ++length;
  return {length, at - earlier};
}

} // namespace

Bytes packG9b(const Bytes &bytes, std::size_t blockSize) {
  Bytes packed = {byteOf(static_cast<int>((bytes.size() + blockSize - 1) / blockSize))};
  std::vector<std::size_t> latest(65536, SIZE_MAX); // place of each pair of bytes
  const auto pairAt = [&](std::size_t at) -> std::size_t & { return latest[bytes[at] * 256u + bytes[at + 1]]; };
  for (std::size_t start = 0; start < bytes.size(); start += blockSize) {
    const std::size_t end = std::min(start + blockSize, bytes.size());
    BitStream stream;
    for (std::size_t at = start; at < end;) {
      const Copy copy = at + 1 < end ? latestCopy(bytes, at, end, pairAt(at)) : Copy{};
      copy.pays() ? stream.putCopy(copy.length, copy.distance) : stream.putLiteral(bytes[at]);
      for (const std::size_t next = at + (copy.pays() ? copy.length : 1); at < next; ++at) {
        if (at + 1 < bytes.size()) pairAt(at) = at;
      }
    }
    stream.putEnd();
    appendWords(packed, {static_cast<int>(stream.bytes.size() & 0xFFFF)});
    append(packed, stream.bytes);
  }
  return packed;
}

Bytes packCmp(const Bytes &bytes, std::size_t lineSize, int directLines) {
  Bytes coded = bytes;
  const std::size_t direct = directLines == 0 ? bytes.size() : static_cast<std::size_t>(directLines) * lineSize;
  for (std::size_t i = direct; i < bytes.size(); ++i) coded[i] = byteOf(bytes[i] ^ bytes[i - lineSize]);
  coded.resize((coded.size() + 63) / 64 * 64);
  Bytes packed;
  for (std::size_t start = 0; start < coded.size(); start += 64) {
    Bytes masks, literals;
    int control = 0; // a bit for each mask that is not zero
    for (std::size_t group = start; group < start + 64; group += 8) {
      int mask = 0; // a bit for each byte that is not zero
      for (std::size_t i = group; i < group + 8; ++i) {
        mask = mask * 2 + (coded[i] != 0);
        if (coded[i] != 0) literals.push_back(coded[i]);
      }
      control = control * 2 + (mask != 0);
      if (mask != 0) masks.push_back(byteOf(mask));
    }
    packed.push_back(byteOf(control));
    append(packed, masks);
    append(packed, literals);
  }
  return packed;
}

Bytes packPage(const Bytes &bytes) {
  Bytes packed, literals;
  for (std::size_t at = 0; at <= bytes.size();) {
    std::size_t count = 0;
    while (count < 128 && at + count < bytes.size() && bytes[at + count] == bytes[at]) ++count;
    const bool runs = count > 2;
    if ((runs || at == bytes.size() || literals.size() == 128) && !literals.empty()) {
      packed.push_back(byteOf(static_cast<int>(literals.size()) - 1));
      append(packed, literals);
      literals.clear();
    }
    if (at == bytes.size()) break;
    if (runs) {
      append(packed, {byteOf(127 + static_cast<int>(count)), bytes[at]});
    } else {
      literals.push_back(bytes[at]);
    }
    at += runs ? count : 1;
  }
  return packed;
}

} // namespace samples
