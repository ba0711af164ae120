// The rendered picture as a Windows bitmap.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

// Bytes before the information header in a bitmap file; a clipboard bitmap starts behind them.
inline constexpr size_t kBitmapFileHeaderBytes = 14;

// Bytes of a row of `width` 24-bit pixels, filled up to a multiple of 4; what is lacking is just width mod 4.
constexpr int32_t RowBytes24(int32_t width) { return width * 3 + width % 4; }

// A 24-bit uncompressed bitmap file, bottom row first, of `width` x `height` words 0x00RRGGBB, top row first. Empty
// when memory is lacking, as is the one below.
std::vector<uint8_t> encodeBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height);

// The same rows as a device-independent bitmap, without a file header and with the information header of version 5,
// which says that the colours are sRGB.
std::vector<uint8_t> encodeBitmapV5(std::span<const uint32_t> frameBits, int32_t width, int32_t height);

// Takes the next bytes of a file. Returns an empty text, or what went wrong.
using PutBytes = std::function<std::string(std::span<const uint8_t>)>;

// Such a file in pieces of some ten thousand bytes, which stay in the caches. Returns what went wrong, which ends it.
std::string putBitmap(std::span<const uint32_t> frameBits, int32_t width, int32_t height, const PutBytes &put);

// Where Save as Bitmap writes: beside the source file, the last three characters replaced by "bmp"; a video's frame
// gets its four-digit number.
std::string bitmapPath(const ViewerState &viewer);

// "Save as Bitmap": the picture at its own size, an older file of that name replaced without asking.
// A failure is shown in a message with the system's words; the older file is then still whole.
void menuSaveBMP_Click(ViewerState &viewer);
