// The inner loops of the renderers: from bytes to colour words, many at once where the processor can; and of bitmap
// files, from words to bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

inline constexpr size_t kPatternSide = 8; // pixels and lines, and bytes of a pattern
inline constexpr size_t kGroupPixels = 4; // with a common hue

// The colours of the fixed 256-colour mode by their bytes.
extern const std::array<uint32_t, 256> kGrb332Colours;

// A pattern of 8 lines, a byte each, bit 7 leftmost; for each line a byte with the entries of set bits (high) and of
// clear bits (low).
struct PatternCell {
  const uint8_t *bits;
  const uint8_t *colours;
};

// Each procedure writes its pixels to `target`, one after another. `palette` has 16 words with the same highest byte.
struct PixelKernels {
  // Two entries a byte, the left one in the high bits.
  void (*nibbles)(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target);

  // Four entries a byte; only the first four words of the palette are used.
  void (*crumbs)(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target);

  // Green in bits 7-5, red in bits 4-2, blue in bits 1-0: `colours` has 256 words, each the sum of its fields' own.
  void (*grb332)(const uint8_t *source, size_t bytes, const uint32_t *colours, uint32_t *target);

  // Groups of four bytes with a common hue, as drawn in pixel_kernels.cpp. In the last kind a byte with bit 3 set is an
  // entry in its high bits.
  void (*yjk)(const uint8_t *source, size_t groups, uint32_t *target);
  void (*yuv)(const uint8_t *source, size_t groups, uint32_t *target);
  void (*yae)(const uint8_t *source, size_t groups, const uint32_t *palette, uint32_t *target);

  // Cells beside one another, the first one at `target`. Lines lie `linePixels` apart.
  void (*cells)(const PatternCell *cells, size_t count, const uint32_t *palette, uint32_t *target, size_t linePixels);

  // The other way: blue, green and red bytes of so many words.
  void (*bytesOfWords)(const uint32_t *words, size_t count, uint8_t *target);

  // At least 8 groups as in yjk, but with blue rounded to whole levels, halves to the even one. nullptr in the plain
  // kernels: the videos for which it is have a table of all colours.
  void (*wholeYjk)(const uint8_t *source, size_t groups, uint32_t *target);
};

// For every processor.
const PixelKernels &plainPixelKernels();

// For processors with AVX2; nullptr where this is none.
const PixelKernels *widePixelKernels();

// For processors with AVX-512; nullptr where this is none.
const PixelKernels *widestPixelKernels();

// The fastest that this processor has.
const PixelKernels &pixelKernels();
