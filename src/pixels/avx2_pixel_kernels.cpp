#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <array>

// 32 pixels at a time: each channel is computed as 32 bytes, then interleaved to words. A byte shuffle is a look-up.
//
// Interleaving works within each half of a register. For words in pixel order, channels are kept "by fours": pixels
// 0-3, 8-11, 16-19 and 24-27 in the low half, 4-7, 12-15, 20-23 and 28-31 in the high half.

#ifdef __x86_64__

#include <immintrin.h>

// Compiled for AVX2 regardless of the program's target.
#define KORILAN_AVX2 __attribute__((target("avx2")))

namespace {

constexpr size_t kBlock = 32; // pixels

// Channels of 32 pixels, by fours.
struct Channels {
  __m256i blue;
  __m256i green;
  __m256i red;
  __m256i top; // zero, except in words that mark palette entries
};

KORILAN_AVX2 inline __m256i bytesOf(int value) { return _mm256_set1_epi8(static_cast<char>(value)); }

// The channels of 16 words, in both halves, and their common top byte.
struct PaletteChannels {
  Channels tables;

  KORILAN_AVX2 explicit PaletteChannels(const uint32_t *palette) {
    const __m128i byChannel = _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    const auto fourWords = [&](size_t first) KORILAN_AVX2 {
      return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i *>(palette + first)), byChannel);
    };
    const __m128i blueGreen0 = _mm_unpacklo_epi32(fourWords(0), fourWords(4));
    const __m128i blueGreen8 = _mm_unpacklo_epi32(fourWords(8), fourWords(12));
    const __m128i red0 = _mm_unpackhi_epi32(fourWords(0), fourWords(4));
    const __m128i red8 = _mm_unpackhi_epi32(fourWords(8), fourWords(12));
    tables = {.blue = _mm256_broadcastsi128_si256(_mm_unpacklo_epi64(blueGreen0, blueGreen8)),
              .green = _mm256_broadcastsi128_si256(_mm_unpackhi_epi64(blueGreen0, blueGreen8)),
              .red = _mm256_broadcastsi128_si256(_mm_unpacklo_epi64(red0, red8)),
              .top = bytesOf(static_cast<int>(palette[0] >> 24))};
  }
};

// 32 bytes, by fours.
KORILAN_AVX2 inline __m256i load(const uint8_t *source) {
  const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(source));
  return _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7));
}

// Shifts each byte right and masks it.
template <int kShift> KORILAN_AVX2 inline __m256i field(__m256i bytes, int mask) {
  return _mm256_and_si256(_mm256_srli_epi16(bytes, kShift), bytesOf(mask));
}

KORILAN_AVX2 inline Channels lookUp(const PaletteChannels &palette, __m256i entries) {
  return {.blue = _mm256_shuffle_epi8(palette.tables.blue, entries),
          .green = _mm256_shuffle_epi8(palette.tables.green, entries),
          .red = _mm256_shuffle_epi8(palette.tables.red, entries),
          .top = palette.tables.top};
}

KORILAN_AVX2 inline void store(uint32_t *target, const Channels &channels) {
  const __m256i lowPairs = _mm256_unpacklo_epi8(channels.blue, channels.green);
  const __m256i highPairs = _mm256_unpackhi_epi8(channels.blue, channels.green);
  const __m256i lowTops = _mm256_unpacklo_epi8(channels.red, channels.top);
  const __m256i highTops = _mm256_unpackhi_epi8(channels.red, channels.top);
  auto *out = reinterpret_cast<__m256i *>(target);
  _mm256_storeu_si256(out, _mm256_unpacklo_epi16(lowPairs, lowTops));
  _mm256_storeu_si256(out + 1, _mm256_unpackhi_epi16(lowPairs, lowTops));
  _mm256_storeu_si256(out + 2, _mm256_unpacklo_epi16(highPairs, highTops));
  _mm256_storeu_si256(out + 3, _mm256_unpackhi_epi16(highPairs, highTops));
}

// Draws 32 pixels per kStep bytes; the last block overlaps the one before. Returns false if there is less than a block.
template <size_t kStep, typename DrawBlock>
KORILAN_AVX2 inline bool drawBlocks(const uint8_t *source, size_t bytes, uint32_t *target, const DrawBlock &draw) {
  if (bytes < kStep) return false;
  const size_t last = bytes - kStep;
  for (size_t at = 0;; at = std::min(at + kStep, last)) {
    draw(source + at, target + at * (kBlock / kStep));
    if (at == last) return true;
  }
}

KORILAN_AVX2 void drawNibbles(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target) {
  const PaletteChannels channels(palette);
  const __m128i byFours = _mm_setr_epi8(0, 1, 4, 5, 8, 9, 12, 13, 2, 3, 6, 7, 10, 11, 14, 15);
  const __m256i lowBits = _mm256_set1_epi16(0x0F00);
  const auto draw = [&](const uint8_t *from, uint32_t *to) KORILAN_AVX2 {
    const __m128i packed = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from));
    const __m256i pairs = _mm256_cvtepu8_epi16(_mm_shuffle_epi8(packed, byFours));
    const __m256i right = _mm256_and_si256(_mm256_slli_epi16(pairs, 8), lowBits);
    store(to, lookUp(channels, _mm256_or_si256(_mm256_srli_epi16(pairs, 4), right)));
  };
  if (!drawBlocks<kBlock / 2>(source, bytes, target, draw)) plainPixelKernels().nibbles(source, bytes, palette, target);
}

KORILAN_AVX2 void drawCrumbs(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target) {
  const PaletteChannels channels(palette);
  const __m128i byFours = _mm_setr_epi8(0, 2, 4, 6, 1, 3, 5, 7, -1, -1, -1, -1, -1, -1, -1, -1);
  const auto draw = [&](const uint8_t *from, uint32_t *to) KORILAN_AVX2 {
    const __m128i packed = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(from));
    const __m256i fours = _mm256_cvtepu8_epi32(_mm_shuffle_epi8(packed, byFours));
    // The four fields of each byte, highest first; other bits are masked out.
    const __m256i left = _mm256_or_si256(_mm256_srli_epi32(fours, 6), _mm256_slli_epi32(fours, 4));
    const __m256i right = _mm256_or_si256(_mm256_slli_epi32(fours, 14), _mm256_slli_epi32(fours, 24));
    store(to, lookUp(channels, _mm256_and_si256(_mm256_or_si256(left, right), bytesOf(3))));
  };
  if (!drawBlocks<kBlock / 4>(source, bytes, target, draw)) plainPixelKernels().crumbs(source, bytes, palette, target);
}

KORILAN_AVX2 void drawGrb332(const uint8_t *source, size_t bytes, const uint32_t *colours, uint32_t *target) {
  // One 8-entry table per bit field; the colour is their sum.
  std::array<uint32_t, 16> ofField{};
  for (size_t i = 0; i < 8; ++i) ofField[i] = colours[i << 5] | colours[i << 2] | colours[i & 3];
  const Channels levels = PaletteChannels(ofField.data()).tables;
  const auto draw = [&](const uint8_t *from, uint32_t *to) KORILAN_AVX2 {
    const __m256i pixels = load(from);
    store(to, {.blue = _mm256_shuffle_epi8(levels.blue, field<0>(pixels, 3)),
               .green = _mm256_shuffle_epi8(levels.green, field<5>(pixels, 7)),
               .red = _mm256_shuffle_epi8(levels.red, field<2>(pixels, 7)),
               .top = _mm256_setzero_si256()});
  };
  if (!drawBlocks<kBlock>(source, bytes, target, draw)) plainPixelKernels().grb332(source, bytes, colours, target);
}

constexpr size_t kBlockCells = kBlock / kPatternSide;
constexpr size_t kHalfLines = kPatternSide / 2;

// A byte per line of four cells: lines 0 to 3 of each cell, and lines 4 to 7, each in both halves.
struct CellLines {
  __m256i upper;
  __m256i lower;

  KORILAN_AVX2 CellLines(const uint8_t *cell0, const uint8_t *cell1, const uint8_t *cell2, const uint8_t *cell3) {
    const auto pair = [](const uint8_t *left, const uint8_t *right) KORILAN_AVX2 {
      return _mm_castsi128_ps(_mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i *>(left)),
                                                 _mm_loadl_epi64(reinterpret_cast<const __m128i *>(right))));
    };
    const __m128 left = pair(cell0, cell1);
    const __m128 right = pair(cell2, cell3);
    upper = _mm256_broadcastsi128_si256(_mm_castps_si128(_mm_shuffle_ps(left, right, _MM_SHUFFLE(2, 0, 2, 0))));
    lower = _mm256_broadcastsi128_si256(_mm_castps_si128(_mm_shuffle_ps(left, right, _MM_SHUFFLE(3, 1, 3, 1))));
  }
};

KORILAN_AVX2 void drawCells(const PatternCell *cells, size_t count, const uint32_t *palette, uint32_t *target,
                            size_t linePixels) {
  const PaletteChannels channels(palette);
  // By fours: the left halves of four cells, then their right halves.
  const __m256i bitOfPixel =
      _mm256_set_epi32(0x01020408, 0x01020408, 0x01020408, 0x01020408, 0x10204080, 0x10204080, 0x10204080, 0x10204080);
  const __m256i firstLines = _mm256_broadcastsi128_si256(
      _mm_setr_epi8(0, 0, 0, 0, 4, 4, 4, 4, 8, 8, 8, 8, 12, 12, 12, 12)); // first line of each cell, for four pixels
  for (; count >= kBlockCells; count -= kBlockCells, cells += kBlockCells, target += kBlock) {
    const CellLines bits(cells[0].bits, cells[1].bits, cells[2].bits, cells[3].bits);
    const CellLines colours(cells[0].colours, cells[1].colours, cells[2].colours, cells[3].colours);
    for (size_t line = 0; line < kPatternSide; ++line) {
      const bool upper = line < kHalfLines;
      const __m256i from = _mm256_add_epi8(firstLines, bytesOf(static_cast<int>(line % kHalfLines)));
      const __m256i lineBits = _mm256_shuffle_epi8(upper ? bits.upper : bits.lower, from);
      const __m256i isSet = _mm256_cmpeq_epi8(_mm256_and_si256(lineBits, bitOfPixel), bitOfPixel);
      const __m256i both = _mm256_shuffle_epi8(upper ? colours.upper : colours.lower, from);
      const __m256i entries = _mm256_blendv_epi8(field<0>(both, 15), field<4>(both, 15), isSet);
      store(target + line * linePixels, lookUp(channels, entries));
    }
  }
  plainPixelKernels().cells(cells, count, palette, target, linePixels);
}

KORILAN_AVX2 void storeBgrBytes(const uint32_t *words, size_t count, uint8_t *target) {
  constexpr size_t kWords = 8;
  constexpr size_t kBytes = 24;      // of these
  constexpr size_t kMaxTouched = 11; // words that a store of 32 bytes overlaps
  const __m128i withoutTops = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
  const __m256i halves = _mm256_broadcastsi128_si256(withoutTops);
  const __m256i together = _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7);
  for (; count >= kMaxTouched; count -= kWords, words += kWords, target += kBytes) {
    const __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(words));
    const __m256i bytes = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(block, halves), together);
    _mm256_storeu_si256(reinterpret_cast<__m256i *>(target), bytes);
  }
  plainPixelKernels().bgrBytes(words, count, target);
}

} // namespace

const PixelKernels *avx2PixelKernels() {
  static const PixelKernels kKernels = []() {
    PixelKernels kernels = plainPixelKernels(); // the others gain little
    kernels.nibbles = drawNibbles;
    kernels.crumbs = drawCrumbs;
    kernels.grb332 = drawGrb332;
    kernels.cells = drawCells;
    kernels.bgrBytes = storeBgrBytes;
    return kernels;
  }();
  return __builtin_cpu_supports("avx2") ? &kKernels : nullptr;
}

#else

const PixelKernels *avx2PixelKernels() { return nullptr; }

#endif
