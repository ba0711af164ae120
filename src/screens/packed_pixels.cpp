#include "screens/packed_pixels.h"

#include <array>

namespace {

// Bits of a byte from the highest down, kPixels to a byte, as colour words.
template <size_t kPixels> using ByteColours = std::array<uint32_t, kPixels>;

// The colours of every byte value: one look-up a byte instead of one a pixel.
template <size_t kPixels> std::array<ByteColours<kPixels>, 256> byteColourTable(const ViewerState &viewer) {
  constexpr size_t kBits = 8 / kPixels;
  constexpr size_t kMask = (size_t{1} << kBits) - 1;
  std::array<ByteColours<kPixels>, 256> table;
  for (size_t byte = 0; byte < table.size(); ++byte) {
    for (size_t pixel = 0; pixel < kPixels; ++pixel) {
      table[byte][pixel] = viewer.palette[byte >> (8 - kBits - pixel * kBits) & kMask];
    }
  }
  return table;
}

bool holdsFrame(const ViewerState &viewer) {
  return viewer.imageWidth >= 0 && viewer.imageHeight >= 0 &&
         viewer.frameBits.size() >= static_cast<size_t>(viewer.imageWidth) * static_cast<size_t>(viewer.imageHeight);
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

template <size_t kPixels> void renderStream(ViewerState &viewer) {
  if (!holdsFrame(viewer)) return;
  if (viewer.fileExtension == kTiledExtension) {
    renderTiles<kPixels>(viewer);
    return;
  }
  const auto width = static_cast<size_t>(viewer.imageWidth);
  const auto height = static_cast<size_t>(viewer.imageHeight);
  const size_t lineBytes = width / kPixels;
  const auto start = static_cast<size_t>(viewer.vramPos);
  if (start > viewer.vram.size() || lineBytes * height > viewer.vram.size() - start) return;

  const auto colours = byteColourTable<kPixels>(viewer);
  const uint8_t *source = viewer.vram.data() + start;
  for (size_t y = 0; y < height; ++y) {
    uint32_t *target = viewer.frameBits.data() + y * width;
    for (size_t x = 0; x < lineBytes; ++x) {
      const ByteColours<kPixels> &pixels = colours[*source++];
      for (size_t i = 0; i < kPixels; ++i) *target++ = pixels[i];
    }
  }
  viewer.vramPos += static_cast<int32_t>(lineBytes * height);
}

template <size_t kPixels> void renderLinear(ViewerState &viewer) {
  if (!holdsFrame(viewer)) return;
  const size_t pixelCount = static_cast<size_t>(viewer.imageWidth) * static_cast<size_t>(viewer.imageHeight);
  if ((pixelCount + kPixels - 1) / kPixels > viewer.vram.size()) return;

  const auto colours = byteColourTable<kPixels>(viewer);
  for (size_t n = 0; n < pixelCount; ++n) {
    viewer.frameBits[n] = colours[viewer.vram[n / kPixels]][n % kPixels];
  }
}

} // namespace

void renderNibbleStream(ViewerState &viewer) { renderStream<2>(viewer); }
void renderCrumbStream(ViewerState &viewer) { renderStream<4>(viewer); }
void renderNibbleLinear(ViewerState &viewer) { renderLinear<2>(viewer); }
void renderCrumbLinear(ViewerState &viewer) { renderLinear<4>(viewer); }
