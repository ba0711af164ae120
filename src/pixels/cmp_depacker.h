// Depacker of DD-Graph's compressed pictures (.CMP).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The memory of the machine; its areas overlap, and the output depends on it.
inline constexpr size_t kCmpMemoryBytes = 0x10000;
inline constexpr size_t kCmpInputBytes = 0x8000; // from address 0: the file
inline constexpr size_t kCmpOutput = 0x8000;     // address of the picture, line after line

struct CmpDepacker {
  std::array<uint8_t, kCmpMemoryBytes> memory;
  size_t input;
  size_t decoded; // bytes decoded so far
  size_t output;
  size_t bytesPerLine;
  int32_t linesLeft;
  int32_t directLines; // direct lines left; negative: all lines are direct
};

// Loads the first kCmpInputBytes of a file, header included.
void startCmpDepacker(CmpDepacker &depacker, std::span<const uint8_t> file);

// Unpacks one line. Returns false if the picture is complete or the memory full.
bool depackCmpLine(CmpDepacker &depacker);
