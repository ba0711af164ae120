#include "screens/packed_pixels.h"

#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <array>

namespace {

bool holdsFrame(const ViewerState &viewer) {
  return viewer.imageWidth >= 0 && viewer.imageHeight >= 0 && viewer.frameBits.size() >= pixelCountOf(viewer);
}

// Bytes of all lines; a partial byte at the end of a line does not count.
template <size_t kPixels> size_t streamBytes(const ViewerState &viewer) {
  return static_cast<size_t>(viewer.imageWidth) / kPixels * static_cast<size_t>(viewer.imageHeight);
}

template <size_t kPixels> bool holdsStream(const ViewerState &viewer) {
  const auto start = static_cast<size_t>(viewer.vramPos);
  return holdsFrame(viewer) && start <= viewer.vram.size() &&
         streamBytes<kPixels>(viewer) <= viewer.vram.size() - start;
}

template <size_t kPixels>
void drawBytes(const ViewerState &viewer, const uint8_t *source, size_t bytes, uint32_t *target) {
  const auto draw = kPixels == 2 ? pixelKernels().nibbles : pixelKernels().crumbs;
  draw(source, bytes, viewer.palette.data(), target);
}

template <size_t kPixels> void renderStream(ViewerState &viewer) {
  if (!holdsStream<kPixels>(viewer)) return blacken(viewer);
  const auto width = static_cast<size_t>(viewer.imageWidth);
  const size_t lineBytes = width / kPixels;
  const uint8_t *source = viewer.vram.data() + viewer.vramPos;
  uint32_t *target = viewer.frameBits.data();
  if (width % kPixels == 0) {
    drawBytes<kPixels>(viewer, source, streamBytes<kPixels>(viewer), target);
  } else {
    for (int32_t y = 0; y < viewer.imageHeight; ++y, source += lineBytes, target += width) {
      drawBytes<kPixels>(viewer, source, lineBytes, target);
      std::fill(target + lineBytes * kPixels, target + width, 0U);
    }
  }
  viewer.vramPos += static_cast<int32_t>(streamBytes<kPixels>(viewer));
}

template <size_t kPixels> void renderLinear(ViewerState &viewer) {
  const size_t pixelCount = pixelCountOf(viewer);
  if (!holdsFrame(viewer) || (pixelCount + kPixels - 1) / kPixels > viewer.vram.size()) return blacken(viewer);
  const size_t wholeBytes = pixelCount / kPixels;
  const size_t rest = pixelCount % kPixels;
  drawBytes<kPixels>(viewer, viewer.vram.data(), wholeBytes, viewer.frameBits.data());
  if (rest == 0) return;
  std::array<uint32_t, kPixels> lastByte{};
  drawBytes<kPixels>(viewer, viewer.vram.data() + wholeBytes, 1, lastByte.data());
  std::copy_n(lastByte.begin(), rest, viewer.frameBits.begin() + static_cast<std::ptrdiff_t>(pixelCount - rest));
}

} // namespace

void renderNibbleStream(ViewerState &viewer) { renderStream<2>(viewer); }
void renderCrumbStream(ViewerState &viewer) { renderStream<4>(viewer); }
void renderNibbleLinear(ViewerState &viewer) { renderLinear<2>(viewer); }
void renderCrumbLinear(ViewerState &viewer) { renderLinear<4>(viewer); }
