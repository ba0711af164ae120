#include "core/render_dispatch.h"

#include "base/buffers.h"
#include "core/dispatch.h"
#include "core/file_kinds.h"
#include "core/load_pipeline.h"
#include "state/palette.h"
#include "formats/publisher_page.h"
#include "formats/vscreen_level.h"
#include "screens/byte_pixels.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"
#include "screens/packed_pixels.h"
#include "screens/pattern_screen.h"

#include <algorithm>

namespace {

constexpr const char *kLinePaletteExtension = ".HAM"; // drawn again, with a palette that changes

// Whether pixels of the present depth run on from line to line without a new byte for each line.
bool pixelsRunOn(const ViewerState &viewer) {
  const FileKind *kind = findFileKind(viewer.fileExtension);
  return kind != nullptr && kind->linearBitsPerPixel == viewer.bitsPerPixel;
}

void drawFrame(ViewerState &viewer) {
  switch (viewer.bitsPerPixel) {
  case 1:
    if (viewer.spriteMode == kTrue) renderTileSet(viewer);
    if (viewer.colourCount == 16 && viewer.spriteMode == kFalse) renderPatternScreen(viewer);
    if (viewer.colourCount == 2) renderPublisherPage(viewer);
    break;
  case 2: pixelsRunOn(viewer) ? renderCrumbLinear(viewer) : renderCrumbStream(viewer); break;
  case 3: renderSpriteSet(viewer); break;
  case 4:
    pixelsRunOn(viewer) ? renderNibbleLinear(viewer) : renderNibbleStream(viewer);
    if (viewer.fileExtension == kLinePaletteExtension) RenderHamPicture(viewer);
    break;
  case 8: RenderBytePixels(viewer); break;
  case 16: RenderG9b16(viewer); break;
  default: break;
  }
}

// Whether drawFrame() writes every pixel.
bool drawingFillsFrame(const ViewerState &viewer) {
  switch (viewer.bitsPerPixel) {
  case 1:
    if (viewer.spriteMode == kTrue) return tileSetFills(viewer);
    return viewer.colourCount == 16 && viewer.spriteMode == kFalse && patternScreenFills(viewer);
  case 2: return pixelsRunOn(viewer) ? crumbLinearFills(viewer) : crumbStreamFills(viewer);
  case 4: return pixelsRunOn(viewer) ? nibbleLinearFills(viewer) : nibbleStreamFills(viewer);
  case 8: return bytePixelsFill(viewer);
  case 16: return g9b16Fills(viewer);
  default: return false;
  }
}

} // namespace

bool renderPicture(ViewerState &viewer) {
  viewer.vramPos = 0;
  // One side of an empty picture may be of any length.
  constexpr auto kLongestSide = static_cast<int32_t>(kMaxPixels);
  const int32_t width = std::clamp(viewer.imageWidth, 0, kLongestSide);
  const int32_t height = std::clamp(viewer.imageHeight, 0, kLongestSide);
  const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
  if (!provideRoom(viewer.frameBits, pixels)) {
    reportNoMemory(viewer);
    return false;
  }
  viewer.frameWidth = width;
  viewer.frameHeight = height;
  const size_t kept = std::min(viewer.frameBits.size(), pixels);
  viewer.frameBits.resize(pixels);
  releaseRoom(viewer.frameBits);
  // Black where no rule writes a pixel; new pixels are.
  if (!drawingFillsFrame(viewer)) std::fill_n(viewer.frameBits.begin(), kept, 0);
  drawFrame(viewer);

  WindowModel &window = viewer.window;
  window.menuViewPal.enabled = hasShortPalette(viewer);
  window.menuViewPal.checked = false;
  for (Swatch &swatch : window.Label5) swatch.visible = false;

  viewer.platform.runPendingEvents(viewer.platform.context);
  viewer.platform.presentPicture(viewer.platform.context, viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
  return true;
}

std::vector<uint32_t> renderEntries(ViewerState &viewer) {
  if (viewer.imageWidth != viewer.frameWidth || viewer.imageHeight != viewer.frameHeight) return {};
  std::vector<uint32_t> entries;
  if (!provideRoom(entries, viewer.frameBits.size())) return {};
  entries.resize(viewer.frameBits.size());
  const auto palette = viewer.palette;
  const int32_t vramPos = viewer.vramPos;
  for (uint32_t entry = 0; entry < kPaletteEntries; ++entry) viewer.palette[entry] = kEntryMark + entry;
  viewer.vramPos = 0;
  viewer.frameBits.swap(entries);
  drawFrame(viewer);
  viewer.frameBits.swap(entries);
  viewer.vramPos = vramPos;
  viewer.palette = palette;
  return entries;
}
