#include "formats/symbos_graphic.h"
#include "screens/byte_pixels.h"
#include "screens/g9b_picture.h"
#include "screens/packed_pixels.h"
#include "screens/pattern_screen.h"
#include "screens/picture_bytes.h"

namespace {

constexpr uint32_t kUntouched = 0x7F000000; // no renderer writes a top byte

// A viewer with `bytes` as video memory, and a palette without black.
ViewerState viewerOf(int32_t width, int32_t height, const Bytes &bytes) {
  ViewerState viewer;
  viewer.imageWidth = viewer.frameWidth = width;
  viewer.imageHeight = viewer.frameHeight = height;
  viewer.vram.resize(bytes.size());
  std::ranges::copy(bytes, viewer.vram.written(bytes.size()).begin());
  viewer.palette.fill(0x123456);
  viewer.frameBits.assign(pixelCountOf(viewer), kUntouched);
  return viewer;
}

// The rest is black. What video memory does not hold is not drawn at all.
TEST(Renderers, DrawOnlyWhatVideoMemoryHolds) {
  constexpr auto nibbles = renderNibbleStream, crumbs = renderCrumbStream, bytes = RenderBytePixels;
  constexpr auto nibbleRun = renderNibbleLinear, crumbRun = renderCrumbLinear, patterns = renderPatternScreen;
  // Size, bytes of video memory, where drawing begins and ends, pixels drawn, colour mode.
  using Row = std::tuple<void (*)(ViewerState &), int32_t, int32_t, size_t, int32_t, int32_t, std::ptrdiff_t, uint8_t>;
  for (const auto &[render, width, height, vramBytes, start, end, drawn, mode] :
       {Row{nibbles, 5, 3, 7, 1, 7, 12, 0}, Row{nibbles, 5, 3, 6, 1, 1, 0, 0}, Row{crumbs, 7, 3, 4, 1, 4, 12, 0},
        Row{nibbleRun, 5, 3, 8, 0, 0, 15, 0}, Row{nibbleRun, 5, 3, 7, 0, 0, 0, 0}, Row{crumbRun, 5, 3, 4, 0, 0, 15, 0},
        Row{bytes, 5, 3, 16, 1, 16, 15, 0}, Row{bytes, 5, 3, 15, 1, 1, 0, 0},
        Row{bytes, 5, 3, 16, 1, 1, 0, 0x41}, // an unknown mode
        Row{bytes, 7, 3, 22, 1, 13, 12, ColourModeYjk}, Row{RenderG9b16, 4, 2, 17, 1, 17, 8, 0},
        Row{RenderG9b16, 4, 2, 16, 1, 1, 0, 0}, Row{patterns, 256, 192, 0x37FF, 3, 3, 0, 0},
        Row{renderSymbosTiles, 4, 2, 16, 0, 0, 0, 0}}) {
    SCOPED_TRACE(testing::Message() << width << "x" << height << " of " << vramBytes << " bytes, mode " << int{mode});
    ViewerState viewer = viewerOf(width, height, Bytes(vramBytes, 0x55));
    viewer.vramPos = start;
    viewer.colourMode = mode;
    render(viewer);
    EXPECT_EQ(std::ranges::count(viewer.frameBits, 0U), std::ssize(viewer.frameBits) - drawn);
    EXPECT_EQ(std::ranges::count(viewer.frameBits, kUntouched), 0);
    EXPECT_EQ(viewer.vramPos, end);
  }
}

TEST(Renderers, EveryPixelOf16Bits) {
  Bytes words;
  for (size_t i = 0; i < 131072; ++i) words.push_back(static_cast<uint8_t>(i % 2 == 0 ? i / 2 : i / 512));
  ViewerState viewer = viewerOf(256, 256, words);
  RenderG9b16(viewer);
  for (uint32_t value = 0; value < 65536; ++value) { // 5 bits each: green, red, blue
    const uint32_t green = value >> 10 & 31, red = value >> 5 & 31, blue = value & 31;
    ASSERT_EQ(viewer.frameBits[value], red * 8 << 16 | green * 8 << 8 | blue * 8) << value;
  }
}

} // namespace
