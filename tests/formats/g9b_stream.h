// Packed G9B data, written code by code.
#pragma once

#include "support/bload_builder.h"

struct G9bStream {
  Bytes bytes = {};
  size_t bitsAt = 0; // byte that takes the next bits
  int bitsUsed = 8;

  void bit(bool set) {
    if (bitsUsed == 8) {
      bitsAt = bytes.size();
      bitsUsed = 0;
      bytes.push_back(0);
    }
    if (set) bytes[bitsAt] = static_cast<uint8_t>(bytes[bitsAt] | 0x80 >> bitsUsed);
    ++bitsUsed;
  }

  // The two bytes that stand before a block, which nobody reads.
  G9bStream &block() {
    bytes.insert(bytes.end(), {0xEE, 0xEE});
    bitsUsed = 8;
    return *this;
  }

  G9bStream &literals(const Bytes &values) {
    for (const uint8_t value : values) {
      bit(false);
      bytes.push_back(value);
    }
    return *this;
  }

  G9bStream &copy(unsigned length, unsigned offset) { // length 2 to 65536, offset 0 to 2047
    bit(true);
    int digits = 0;
    while ((length - 1) >> digits > 1) ++digits;
    while (digits-- > 0) {
      bit(true);
      bit(((length - 1) >> digits & 1) != 0);
    }
    bit(false);
    if (offset < 128) {
      bytes.push_back(static_cast<uint8_t>(offset));
    } else {
      bytes.push_back(static_cast<uint8_t>(0x80 | (offset & 0x7F)));
      for (const unsigned weight : {1024u, 512u, 256u, 128u}) bit((offset & weight) != 0);
    }
    return *this;
  }

  G9bStream &end() {
    bit(true);
    for (int i = 0; i < 16; ++i) {
      bit(true);
      bit(i % 3 == 0); // either value does
    }
    return *this;
  }
};
