// A picture as the bytes of a Windows bitmap.
#pragma once

#include "base/file_ops.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// width x height words, top row first.
template <typename Word> struct PixelRows {
  std::span<const Word> words;
  int32_t width;
  int32_t height;
};

// A rendered picture: its words are 0x00RRGGBB.
using PixelView = PixelRows<uint32_t>;

// Bytes of a row of `width` 24-bit pixels, padded to a multiple of 4: the padding of 3 * width is width mod 4.
constexpr int32_t RowBytes24(int32_t width) { return width * 3 + width % 4; }

enum class BitmapHeader {
  kFile,        // of a bitmap file: file header and information header
  kClipboard,   // the information header alone
  kClipboardV5, // version 5 of it: the colours are sRGB
};

// Bytes of header and rows together.
size_t bitmapBytes(const PixelView &picture, BitmapHeader header);

// Puts header and rows, 24 bits a pixel, bottom row first, in chunks of 32 KB. Stops at the first error and returns it.
std::string putBitmap(const PixelView &picture, BitmapHeader header, const PutBytes &put);
