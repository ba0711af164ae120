// Inner loops of the renderers (bytes to colour words) and of bitmap files (words to bytes).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

inline constexpr size_t kPatternSide = 8; // pixels and lines of a cell; bytes of a pattern
inline constexpr size_t kGroupPixels = 4; // pixels with common J and K

// Entry `i` of a byte that holds kPixels palette entries, the leftmost in the highest bits.
template <size_t kPixels> constexpr size_t entryOf(size_t byte, size_t i) {
  constexpr size_t kBits = 8 / kPixels;
  return byte >> (8 - kBits - i * kBits) & ((size_t{1} << kBits) - 1);
}

// The colours of the fixed 256-colour mode, indexed by byte.
extern const std::array<uint32_t, 256> kGrb332Colours;

// A pattern: per line a byte of pixels, bit 7 leftmost, and a byte of colours: the entries of set bits (high nibble)
// and clear bits (low nibble).
struct PatternCell {
  const uint8_t *bits;
  const uint8_t *colours;
};

// Each writes consecutive pixels to `target`. `palette` has 16 words with the same top byte.
struct PixelKernels {
  // Two entries per byte, the left one in the high bits.
  void (*nibbles)(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target);

  // Four entries per byte, the leftmost in the highest bits; uses the first four words of the palette.
  void (*crumbs)(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target);

  // Green in bits 7-5, red in 4-2, blue in 1-0. `colours` has 256 words, each the sum of its fields' words.
  void (*grb332)(const uint8_t *source, size_t bytes, const uint32_t *colours, uint32_t *target);

  // Groups of four bytes as drawn in pixel_kernels.cpp. yae: a byte with bit 3 set is an entry in its high nibble.
  void (*yjk)(const uint8_t *source, size_t groups, uint32_t *target);
  void (*yuv)(const uint8_t *source, size_t groups, uint32_t *target);
  void (*yae)(const uint8_t *source, size_t groups, const uint32_t *palette, uint32_t *target);

  // Cells side by side, the first at `target`; lines are `linePixels` apart.
  void (*cells)(const PatternCell *cells, size_t count, const uint32_t *palette, uint32_t *target, size_t linePixels);

  // Reverse: writes `count` words as B, G, R bytes.
  void (*bgrBytes)(const uint32_t *words, size_t count, uint8_t *target);

  // As yjk, blue rounded to whole levels, halves to the even one: the video player's colours.
  void (*videoYjk)(const uint8_t *source, size_t groups, uint32_t *target);
};

// Portable.
const PixelKernels &plainPixelKernels();

// AVX2, or nullptr if the processor lacks it.
const PixelKernels *avx2PixelKernels();

// The fastest of these that the processor supports.
const PixelKernels &pixelKernels();
