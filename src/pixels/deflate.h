// Compression into a zlib stream (RFC 1950, RFC 1951).
#pragma once

#include "base/file_ops.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// A stream that is being written. Holds less than 1 MiB, whatever its length.
struct Deflater {
  // A literal byte, or a match: length - 3 in the bits from 16 on, distance below; no distance is 0.
  using Symbol = uint32_t;

  static constexpr size_t kWindowBytes = size_t{32} << 10; // how far back a match reaches
  static constexpr size_t kInputBytes = 8 * kWindowBytes;
  static constexpr size_t kBlockSymbols = 65536;
  static constexpr size_t kOutputBytes = size_t{32} << 10;
  static constexpr int kHashBits = 14;

  explicit Deflater(const PutBytes &put);

  PutBytes put;
  std::string failure; // of `put`; nothing is put behind it

  std::vector<uint8_t> input;   // the window, then bytes that are not yet compressed
  size_t position = 0;          // in `input`, of the next byte to compress
  std::vector<uint32_t> newest; // hash of four bytes -> their latest position in `input` + 1; 0: none
  std::vector<Symbol> symbols;  // of the block
  std::array<uint32_t, 2> checksum{1, 0};

  std::vector<uint8_t> output;
  size_t outputBytes = 0; // in use
  uint64_t bits = 0;      // less than a byte that is not yet in `output`, the lowest bit first
  int bitCount = 0;
};

void addBytes(Deflater &deflater, std::span<const uint8_t> bytes);

// Ends the stream. Returns what went wrong in `put`, or an empty text.
std::string finishStream(Deflater &deflater);
