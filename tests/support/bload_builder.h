// BLOAD files put together field by field.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

using Bytes = std::vector<uint8_t>;

// `bytes` from `offset` on, in a file that is made longer where needed.
inline Bytes withBytesAt(Bytes file, size_t offset, const Bytes &bytes) {
  file.resize(std::max(file.size(), offset + bytes.size()));
  std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(offset));
  return file;
}

struct BloadBuilder {
  uint8_t identifier = 0xFE;
  uint16_t startAddress = 0;
  uint16_t endAddress = 0x7FFF; // within the bounds of every mode
  uint16_t executionAddress = 0;
  Bytes body = {};

  Bytes build() const {
    Bytes header{identifier};
    for (const int word : {startAddress, endAddress, executionAddress}) {
      header.push_back(static_cast<uint8_t>(word));
      header.push_back(static_cast<uint8_t>(word >> 8));
    }
    return withBytesAt(header, header.size(), body);
  }
};
