// Depacker of DD-Graph's compressed pictures.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The memory of the machine for which the format was made; its areas overlap, and the code's effect hangs on that.
inline constexpr size_t kCmpMemoryBytes = 0x10000;
inline constexpr size_t kCmpInputBytes = 0x8000; // from 0: the file
inline constexpr size_t kCmpOutput = 0x8000;     // from here on: the picture, lines one after another

struct CmpDepacker {
  std::array<uint8_t, kCmpMemoryBytes> memory{};
  uint16_t input = 0;
  size_t output = kCmpOutput;
  uint8_t mask = 0;          // bits of the next bytes, highest first
  uint8_t maskBits = 0;      // bits left in `mask`
  uint8_t tablePosition = 0; // next entry of the mask table
  uint8_t bytesPerLine = 0;
  uint8_t column = 0;
  uint8_t linesLeft = 0;
  int16_t directLines = 0; // lines that follow without a difference to the line above
};

// Takes in the first bytes of a file, header and all.
void startCmpDepacker(CmpDepacker &depacker, std::span<const uint8_t> file);

// Unpacks one byte. Returns false when the picture is complete or the memory full.
bool depackCmpByte(CmpDepacker &depacker);
