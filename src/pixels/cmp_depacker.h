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
  std::array<uint8_t, kCmpMemoryBytes> memory;
  size_t input;
  size_t decoded; // bytes so far
  size_t output;
  size_t bytesPerLine;
  int32_t linesLeft;
  int32_t directLines; // lines that follow without a difference to the line above
};

// Takes in the first bytes of a file, header and all.
void startCmpDepacker(CmpDepacker &depacker, std::span<const uint8_t> file);

// Unpacks one line. Returns false when the picture is complete or the memory full.
bool depackCmpLine(CmpDepacker &depacker);
