#pragma once

// What the files of the samples are put together from.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace samples {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t byteOf(int value) { return static_cast<std::uint8_t>(value & 0xFF); }

inline void append(Bytes &bytes, const Bytes &more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

// Little-endian, 16 bits each.
inline void appendWords(Bytes &bytes, std::initializer_list<int> words) {
  for (const int word : words) append(bytes, {byteOf(word), byteOf(word >> 8)});
}

// Writes `part` at `address`; the bytes up to there become zero if there are none.
inline void place(Bytes &bytes, std::size_t address, const Bytes &part) {
  if (bytes.size() < address + part.size()) bytes.resize(address + part.size());
  for (std::size_t i = 0; i < part.size(); ++i) bytes[address + i] = part[i];
}

inline Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

} // namespace samples
