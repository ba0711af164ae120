#include "formats/publisher_page.h"
#include "formats/symbos_graphic.h"
#include "formats/vscreen_level.h"
#include "screens/byte_pixels.h"
#include "screens/g9b_picture.h"
#include "screens/packed_pixels.h"
#include "screens/pattern_screen.h"
#include "screens/picture_bytes.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <tuple>

namespace {

constexpr uint32_t kUntouched = 0x7F000000; // no renderer writes a top byte

// A viewer with `bytes` as video memory, and a palette of 256 different colours.
ViewerState viewerOf(int32_t width, int32_t height, size_t framePixels, const Bytes &bytes) {
  ViewerState viewer;
  viewer.imageWidth = viewer.frameWidth = width;
  viewer.imageHeight = viewer.frameHeight = height;
  viewer.vram.resize(bytes.size());
  std::ranges::copy(bytes, viewer.vram.written(bytes.size()).begin());
  for (uint32_t i = 0; i < 256; ++i) viewer.palette[i] = 0x010000 * i + 0x00FF00 - 0x0100 * i + 0x5A;
  viewer.frameBits.assign(framePixels, kUntouched);
  return viewer;
}

// What is drawn has another colour than black; the rest is black. What video memory or the frame does not hold is not
// drawn at all.
TEST(Renderers, DrawOnlyWhatVideoMemoryHolds) {
  constexpr auto stream2 = renderNibbleStream, stream4 = renderCrumbStream, bytes = RenderBytePixels;
  constexpr auto run2 = renderNibbleLinear, run4 = renderCrumbLinear, tiles = renderTileSet, sprites = renderSpriteSet;
  using Render = void (*)(ViewerState &);
  // Size, bytes of video memory, where drawing begins, pixels of the frame, pixels drawn, where it ends, colour mode.
  using Row =
      std::tuple<const char *, Render, int32_t, int32_t, size_t, int32_t, size_t, std::ptrdiff_t, int32_t, uint8_t>;
  for (const auto &[name, render, width, height, vramBytes, vramPos, framePixels, drawn, posBehind, mode] :
       {Row{"nibbles", stream2, 5, 3, 7, 1, 15, 12, 7, 0},
        Row{"nibbles, short", stream2, 5, 3, 6, 1, 15, 0, 1, 0},
        Row{"nibbles, behind the end", stream2, 5, 3, 7, 8, 15, 0, 8, 0},
        Row{"nibbles, small frame", stream2, 5, 3, 7, 1, 14, 0, 1, 0},
        Row{"nibbles, even", stream2, 4, 2, 4, 0, 8, 8, 4, 0},
        Row{"crumbs", stream4, 7, 3, 4, 1, 21, 12, 4, 0},
        Row{"crumbs, short", stream4, 7, 3, 3, 1, 21, 0, 1, 0},
        Row{"run of nibbles", run2, 5, 3, 8, 0, 15, 15, 0, 0},
        Row{"run of nibbles, short", run2, 5, 3, 7, 0, 15, 0, 0, 0},
        Row{"run of crumbs", run4, 5, 3, 4, 0, 15, 15, 0, 0},
        Row{"run of crumbs, short", run4, 5, 3, 3, 0, 15, 0, 0, 0},
        Row{"bytes", bytes, 5, 3, 16, 1, 15, 15, 16, 0},
        Row{"bytes, short", bytes, 5, 3, 15, 1, 15, 0, 1, 0},
        Row{"bytes, small frame", bytes, 5, 3, 16, 1, 14, 0, 1, 0},
        Row{"bytes, before the start", bytes, 5, 3, 16, -1, 15, 0, -1, 0},
        Row{"bytes, behind the end", bytes, 5, 3, 16, 17, 15, 0, 17, 0},
        Row{"fixed colours", bytes, 5, 3, 16, 1, 15, 15, 16, ColourModeGrb332},
        Row{"groups", bytes, 7, 3, 22, 1, 21, 12, 13, ColourModeYjk},
        Row{"whole groups", bytes, 8, 3, 25, 1, 24, 24, 25, ColourModeYuv},
        Row{"unknown mode", bytes, 5, 3, 16, 1, 15, 0, 1, 0x41},
        Row{"16 bits", RenderG9b16, 4, 2, 17, 1, 8, 8, 17, 0},
        Row{"16 bits, short", RenderG9b16, 4, 2, 16, 1, 8, 0, 1, 0},
        Row{"patterns", renderPatternScreen, 256, 192, 0x3800, 3, 256 * 192, 256 * 192, 3, 0},
        Row{"patterns, short", renderPatternScreen, 256, 192, 0x37FF, 3, 256 * 192, 0, 3, 0},
        Row{"patterns, narrow", renderPatternScreen, 255, 192, 0x3800, 3, 255 * 192, 0, 3, 0},
        Row{"tiles", tiles, 256, 64, 4096, 3, 256 * 64, 256 * 64, 3, 0},
        Row{"tiles, low", tiles, 256, 63, 4096, 3, 256 * 63, 0, 3, 0},
        Row{"sprites", sprites, 256, 48, 4608, 3, 256 * 48, 256 * 48, 3, 0},
        Row{"sprites, narrow", sprites, 255, 48, 4608, 3, 255 * 48, 0, 3, 0},
        Row{"SymbOS, no tiles", renderSymbosTiles, 4, 2, 16, 0, 8, 0, 0, 0}}) {
    ViewerState viewer = viewerOf(width, height, framePixels, Bytes(vramBytes, 0x55));
    viewer.vramPos = vramPos;
    viewer.colourMode = mode;
    render(viewer);
    EXPECT_EQ(std::ranges::count(viewer.frameBits, 0U), std::ssize(viewer.frameBits) - drawn) << name;
    EXPECT_EQ(std::ranges::count(viewer.frameBits, kUntouched), 0) << name;
    EXPECT_EQ(viewer.vramPos, posBehind) << name;
  }
}

// The frame that `render` makes of bytes without a pattern, pixel by pixel.
void expectPixels(void (*render)(ViewerState &), size_t width, size_t height,
                  const std::function<uint32_t(const ViewerState &viewer, size_t x, size_t y)> &expected,
                  const Bytes &bytes = noise(0x10000, 1)) {
  ViewerState viewer = viewerOf(static_cast<int32_t>(width), static_cast<int32_t>(height), width * height, bytes);
  render(viewer);
  for (size_t y = 0; y < height; ++y) {
    for (size_t x = 0; x < width; ++x) {
      ASSERT_EQ(viewer.frameBits[y * width + x], expected(viewer, x, y)) << x << " " << y;
    }
  }
}

TEST(Renderers, EveryPixelByItsAddresses) {
  const auto cell = [](const ViewerState &viewer, size_t pattern, size_t colourTable, size_t x, size_t y) {
    const uint8_t colours = viewer.vram[colourTable + pattern * 8 + y % 8];
    return viewer.palette[(viewer.vram[pattern * 8 + y % 8] & 0x80 >> x % 8) != 0 ? colours / 16 : colours % 16];
  };
  expectPixels(renderPatternScreen, 256, 192, [&](const ViewerState &viewer, size_t x, size_t y) {
    return cell(viewer, viewer.vram[0x1800 + y / 8 * 32 + x / 8] + y / 64 * 256, 0x2000, x, y);
  });
  expectPixels(renderTileSet, 256, 64, [&](const ViewerState &viewer, size_t x, size_t y) {
    return cell(viewer, y / 8 * 32 + x / 8, 2048, x, y);
  });
  expectPixels(renderSpriteSet, 256, 48, [](const ViewerState &viewer, size_t x, size_t y) {
    size_t entry = 0;
    for (const size_t layer : {0U, 1U}) { // 16 bytes for the left half, 16 for the right half
      const size_t sprite = y / 16 * 16 + x / 16;
      const uint8_t bits = viewer.vram[sprite * 64 + layer * 32 + x % 16 / 8 * 16 + y % 16];
      if ((bits << x % 8 & 0x80) != 0) entry |= viewer.vram[3072 + sprite * 32 + layer * 16 + y % 16] % 16;
    }
    return viewer.palette[entry];
  });
  expectPixels(renderPublisherPage, 512, 705, [](const ViewerState &viewer, size_t x, size_t y) { // a line too many
    const uint8_t bits = viewer.vram[y * 64 + x / 8];
    return y < 704 && (bits >> (x % 8 < 4 ? 3 - x % 8 : 11 - x % 8) & 1) == 0 ? 0xFFFFFF : 0U;
  });
  expectPixels(renderNibbleLinear, 9, 7, [](const ViewerState &viewer, size_t x, size_t y) {
    return viewer.palette[viewer.vram[(y * 9 + x) / 2] >> (4 - (y * 9 + x) % 2 * 4) & 15];
  });
  expectPixels(renderCrumbLinear, 9, 7, [](const ViewerState &viewer, size_t x, size_t y) {
    return viewer.palette[viewer.vram[(y * 9 + x) / 4] >> (6 - (y * 9 + x) % 4 * 2) & 3];
  });
}

TEST(Renderers, EveryPixelOf16Bits) {
  Bytes words;
  for (int value = 0; value < 65536; ++value)
    words.insert(words.end(), {static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8)});
  const auto expected = [](const ViewerState &, size_t x, size_t y) { // 5 bits each: green, red, blue
    return static_cast<uint32_t>(((y * 256 + x) >> 5 & 31) * 8 << 16 | (y >> 2 & 31) * 8 << 8 | (x & 31) * 8);
  };
  expectPixels(RenderG9b16, 256, 256, expected, words);
}

} // namespace
