#include "screens/byte_pixels.h"

#include "pixels/pixel_kernels.h"

#include <algorithm>

namespace {

bool holdsPicture(const ViewerState &viewer) {
  if (viewer.imageWidth <= 0 || viewer.imageHeight <= 0 || viewer.vramPos < 0) return false;
  const size_t pixels = pixelCountOf(viewer);
  const auto start = static_cast<size_t>(viewer.vramPos);
  return start <= viewer.vram.size() && pixels <= viewer.vram.size() - start && pixels <= viewer.frameBits.size();
}

// `draw` takes the bytes, their number of groups, and the target.
template <typename Draw> void drawGroups(ViewerState &viewer, const Draw &draw) {
  const auto width = static_cast<size_t>(viewer.imageWidth);
  const size_t lineGroups = width / kGroupPixels;
  const size_t groups = lineGroups * static_cast<size_t>(viewer.imageHeight);
  const uint8_t *source = viewer.vram.data() + viewer.vramPos;
  uint32_t *target = viewer.frameBits.data();
  if (width % kGroupPixels == 0) {
    draw(source, groups, target);
  } else {
    for (int32_t y = 0; y < viewer.imageHeight; ++y, source += lineGroups * kGroupPixels, target += width) {
      draw(source, lineGroups, target);
      std::fill(target + lineGroups * kGroupPixels, target + width, 0U);
    }
  }
  viewer.vramPos += static_cast<int32_t>(groups * kGroupPixels);
}

void drawPaletteBytes(ViewerState &viewer) {
  const uint8_t *source = viewer.vram.data() + viewer.vramPos;
  const size_t count = pixelCountOf(viewer);
  for (size_t n = 0; n < count; ++n) viewer.frameBits[n] = viewer.palette[source[n]];
  viewer.vramPos += static_cast<int32_t>(count);
}

void drawGrb332(ViewerState &viewer) {
  const size_t count = pixelCountOf(viewer);
  pixelKernels().grb332(viewer.vram.data() + viewer.vramPos, count, kGrb332Colours.data(), viewer.frameBits.data());
  viewer.vramPos += static_cast<int32_t>(count);
}

} // namespace

void RenderBytePixels(ViewerState &viewer) {
  const auto yae = [palette = viewer.palette.data()](const uint8_t *source, size_t groups, uint32_t *target) {
    pixelKernels().yae(source, groups, palette, target);
  };
  if (!holdsPicture(viewer)) return blacken(viewer);
  switch (viewer.colourMode) {
  case ColourModePalette: return drawPaletteBytes(viewer);
  case ColourModeGrb332: return drawGrb332(viewer);
  case ColourModeYjk: return drawGroups(viewer, pixelKernels().yjk);
  case ColourModeYuv: return drawGroups(viewer, pixelKernels().yuv);
  case ColourModeYae: return drawGroups(viewer, yae);
  default: return blacken(viewer);
  }
}
