// Files put together byte by byte.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

inline Bytes word(int value) { return {static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8)}; }

inline Bytes joined(std::initializer_list<Bytes> parts) {
  Bytes whole;
  for (const Bytes &part : parts) whole.insert(whole.end(), part.begin(), part.end());
  return whole;
}

inline Bytes repeated(int times, const Bytes &part) {
  Bytes whole;
  while (times-- > 0) whole.insert(whole.end(), part.begin(), part.end());
  return whole;
}

// Puts each piece behind those before; never fails.
inline auto putInto(Bytes &file) {
  return [&file](std::span<const uint8_t> piece) {
    file.insert(file.end(), piece.begin(), piece.end());
    return std::string();
  };
}

// `bytes` from `offset` on, in a file that is made longer where needed.
inline Bytes withBytesAt(Bytes file, size_t offset, const Bytes &bytes) {
  file.resize(std::max(file.size(), offset + bytes.size()));
  std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(offset));
  return file;
}

// Bytes without a pattern, always the same ones for the same start.
inline Bytes noise(size_t count, uint32_t start) {
  Bytes bytes(count);
  for (uint8_t &value : bytes) value = static_cast<uint8_t>((start = start * 1664525 + 1013904223) >> 24);
  return bytes;
}

struct BloadBuilder {
  uint8_t identifier = 0xFE;
  uint16_t endAddress = 0x7FFF; // within the bounds of every mode
  Bytes body = {};

  Bytes build() const { return joined({{identifier}, word(0), word(endAddress), word(0), body}); }
};
