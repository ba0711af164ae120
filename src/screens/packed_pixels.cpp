#include "screens/packed_pixels.h"

#include "pixels/packed_entries.h"
#include "pixels/pixel_kernels.h"

#include <algorithm>
#include <array>

namespace {

// The pixels of a byte as colour words.
template <size_t kPixels> using ByteColours = std::array<uint32_t, kPixels>;

// The colours of every byte value: one look-up a byte instead of one a pixel.
template <size_t kPixels> std::array<ByteColours<kPixels>, 256> byteColourTable(const ViewerState &viewer) {
  std::array<ByteColours<kPixels>, 256> table;
  for (size_t byte = 0; byte < table.size(); ++byte) {
    for (size_t i = 0; i < kPixels; ++i) table[byte][i] = viewer.palette[entryOf<kPixels>(byte, i)];
  }
  return table;
}

bool holdsFrame(const ViewerState &viewer) {
  return viewer.imageWidth >= 0 && viewer.imageHeight >= 0 && viewer.frameBits.size() >= pixelCountOf(viewer);
}

constexpr const char *kTiledExtension = ".SGX";

// Draws the tiles of the tile table; their bytes follow one another from `vramPos` on. A tile that is wider than the
// picture goes on in the next line.
template <size_t kPixels> void renderTiles(ViewerState &viewer) {
  const auto colours = byteColourTable<kPixels>(viewer);
  const auto frameSize = static_cast<int64_t>(viewer.frameBits.size());
  auto source = static_cast<size_t>(viewer.vramPos);
  for (int32_t i = 0; i < viewer.symbosTileCount; ++i) {
    const SymbosTile &tile = viewer.symbosTiles[static_cast<size_t>(i)];
    for (int64_t row = 0; row < tile.height; ++row) {
      if (tile.bytesPerLine > viewer.vram.size() - source) return;
      int64_t target = (tile.y + row) * viewer.imageWidth + tile.x;
      for (size_t k = 0; k < tile.bytesPerLine; ++k) {
        for (const uint32_t colour : colours[viewer.vram[source + k]]) {
          if (target >= 0 && target < frameSize) viewer.frameBits[static_cast<size_t>(target)] = colour;
          ++target;
        }
      }
      source += tile.bytesPerLine;
    }
  }
  viewer.vramPos = static_cast<int32_t>(source);
}

bool hasTiles(const ViewerState &viewer) { return viewer.fileExtension == kTiledExtension; }

// Bytes of all lines, each of whole bytes only.
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
  if (hasTiles(viewer)) {
    if (holdsFrame(viewer)) renderTiles<kPixels>(viewer);
    return;
  }
  if (!holdsStream<kPixels>(viewer)) return;
  const auto width = static_cast<size_t>(viewer.imageWidth);
  const size_t lineBytes = width / kPixels;
  const uint8_t *source = viewer.vram.data() + viewer.vramPos;
  uint32_t *target = viewer.frameBits.data();
  if (width % kPixels == 0) {
    drawBytes<kPixels>(viewer, source, streamBytes<kPixels>(viewer), target);
  } else {
    for (int32_t y = 0; y < viewer.imageHeight; ++y, source += lineBytes, target += width) {
      drawBytes<kPixels>(viewer, source, lineBytes, target);
    }
  }
  viewer.vramPos += static_cast<int32_t>(streamBytes<kPixels>(viewer));
}

template <size_t kPixels> bool streamFills(const ViewerState &viewer) {
  return !hasTiles(viewer) && static_cast<size_t>(viewer.imageWidth) % kPixels == 0 && holdsStream<kPixels>(viewer);
}

template <size_t kPixels> bool linearFills(const ViewerState &viewer) {
  return holdsFrame(viewer) && (pixelCountOf(viewer) + kPixels - 1) / kPixels <= viewer.vram.size();
}

template <size_t kPixels> void renderLinear(ViewerState &viewer) {
  if (!linearFills<kPixels>(viewer)) return;
  const size_t pixelCount = pixelCountOf(viewer);
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

bool nibbleStreamFills(const ViewerState &viewer) { return streamFills<2>(viewer); }
bool crumbStreamFills(const ViewerState &viewer) { return streamFills<4>(viewer); }
bool nibbleLinearFills(const ViewerState &viewer) { return linearFills<2>(viewer); }
bool crumbLinearFills(const ViewerState &viewer) { return linearFills<4>(viewer); }
