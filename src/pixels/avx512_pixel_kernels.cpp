#include "base/processor.h"
#include "pixels/pixel_kernels.h"

#include <cstring>

// 16 pixels at a time: a register holds a whole palette, and one instruction looks 16 entries up in it. Of each entry
// it reads the low four bits only (in two registers: five); what stands above them need not be cleared.

#ifdef __x86_64__

#include <immintrin.h>

// Compiled for AVX-512 whatever the rest of the program is compiled for.
#define KORILAN_WIDEST __attribute__((target("avx512f")))

namespace {

constexpr size_t kBlock = 16; // pixels

// Draws 16 pixels from each kStep bytes, and the rest. `wordsOf` makes the words of so many bytes.
template <size_t kStep, typename WordsOf>
KORILAN_WIDEST inline void drawBlocks(const uint8_t *source, size_t bytes, uint32_t *target, const WordsOf &wordsOf) {
  for (; bytes >= kStep; bytes -= kStep, source += kStep, target += kBlock) {
    _mm512_storeu_si512(target, wordsOf(source));
  }
  if (bytes == 0) return;
  uint8_t rest[kStep] = {};
  std::memcpy(rest, source, bytes);
  const auto asked = static_cast<__mmask16>((1U << (bytes * (kBlock / kStep))) - 1);
  _mm512_mask_storeu_epi32(target, asked, wordsOf(rest));
}

KORILAN_WIDEST void drawNibbles(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target) {
  const __m512i colours = _mm512_loadu_si512(palette);
  const __m512i fourBytesEach = _mm512_setr_epi32(0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1);
  const __m512i bitsBelow = _mm512_setr_epi32(4, 0, 12, 8, 20, 16, 28, 24, 4, 0, 12, 8, 20, 16, 28, 24);
  drawBlocks<kBlock / 2>(source, bytes, target, [&](const uint8_t *from) KORILAN_WIDEST {
    const __m128i packed = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(from));
    const __m512i bytesOfPixels = _mm512_permutexvar_epi32(fourBytesEach, _mm512_castsi128_si512(packed));
    return _mm512_permutexvar_epi32(_mm512_srlv_epi32(bytesOfPixels, bitsBelow), colours);
  });
}

KORILAN_WIDEST void drawCrumbs(const uint8_t *source, size_t bytes, const uint32_t *palette, uint32_t *target) {
  // The first four words, four times: two of the four bits that are looked up are the pixel's.
  const __m512i colours = _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i *>(palette)));
  const __m512i bitsBelow = _mm512_setr_epi32(6, 4, 2, 0, 14, 12, 10, 8, 22, 20, 18, 16, 30, 28, 26, 24);
  drawBlocks<kBlock / 4>(source, bytes, target, [&](const uint8_t *from) KORILAN_WIDEST {
    int packed = 0;
    std::memcpy(&packed, from, sizeof packed);
    return _mm512_permutexvar_epi32(_mm512_srlv_epi32(_mm512_set1_epi32(packed), bitsBelow), colours);
  });
}

KORILAN_WIDEST void drawGrb332(const uint8_t *source, size_t bytes, const uint32_t *colours, uint32_t *target) {
  // The low five bits are red and blue: a look-up in two registers reads five.
  const __m512i redBlue = _mm512_loadu_si512(colours);
  const __m512i redBlueBehind = _mm512_loadu_si512(colours + kBlock);
  uint32_t ofGreen[kBlock]; // twice
  for (size_t i = 0; i < kBlock; ++i) ofGreen[i] = colours[i % 8 << 5];
  const __m512i greens = _mm512_loadu_si512(ofGreen);
  drawBlocks<kBlock>(source, bytes, target, [&](const uint8_t *from) KORILAN_WIDEST {
    const __m512i pixels = _mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i *>(from)));
    return _mm512_or_si512(_mm512_permutex2var_epi32(redBlue, pixels, redBlueBehind),
                           _mm512_permutexvar_epi32(_mm512_srli_epi32(pixels, 5), greens));
  });
}

// Four bytes of the left cell in each of the first 8 words, of the right cell in each of the others.
KORILAN_WIDEST inline __m512i fourLines(const uint8_t *left, const uint8_t *right) {
  int leftBytes = 0;
  int rightBytes = 0;
  std::memcpy(&leftBytes, left, sizeof leftBytes);
  std::memcpy(&rightBytes, right, sizeof rightBytes);
  return _mm512_mask_set1_epi32(_mm512_set1_epi32(leftBytes), 0xFF00, rightBytes);
}

KORILAN_WIDEST void drawCells(const PatternCell *cells, size_t count, const uint32_t *palette, uint32_t *target,
                              size_t linePixels) {
  constexpr size_t kBlockCells = kBlock / kPatternSide;
  constexpr size_t kFourLines = 4;
  const __m512i colours = _mm512_loadu_si512(palette);
  const __m512i four = _mm512_set1_epi32(4);
  const __m512i bitOfPixel = _mm512_setr_epi32(128, 64, 32, 16, 8, 4, 2, 1, 128, 64, 32, 16, 8, 4, 2, 1);
  for (; count >= kBlockCells; count -= kBlockCells, cells += kBlockCells, target += kBlock) {
    for (size_t first = 0; first < kPatternSide; first += kFourLines) {
      const __m512i bits = fourLines(cells[0].bits + first, cells[1].bits + first);
      const __m512i pairs = fourLines(cells[0].colours + first, cells[1].colours + first);
      for (size_t line = 0; line < kFourLines; ++line) {
        const __m512i bitsBelow = _mm512_set1_epi32(static_cast<int>(8 * line));
        const __mmask16 isSet = _mm512_test_epi32_mask(bits, _mm512_sllv_epi32(bitOfPixel, bitsBelow));
        const __m512i entries = _mm512_srlv_epi32(pairs, _mm512_mask_add_epi32(bitsBelow, isSet, bitsBelow, four));
        _mm512_storeu_si512(target + (first + line) * linePixels, _mm512_permutexvar_epi32(entries, colours));
      }
    }
  }
  plainPixelKernels().cells(cells, count, palette, target, linePixels);
}

} // namespace

const PixelKernels *widestPixelKernels() {
  const PixelKernels *const wide = widePixelKernels();
  if (wide == nullptr || !hasAvx512()) return nullptr;
  static const PixelKernels kernels = [wide] {
    PixelKernels widest = *wide;
    widest.nibbles = drawNibbles;
    widest.crumbs = drawCrumbs;
    widest.grb332 = drawGrb332;
    widest.cells = drawCells;
    return widest;
  }();
  return &kernels;
}

#else

const PixelKernels *widestPixelKernels() { return nullptr; }

#endif
