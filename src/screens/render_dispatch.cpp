#include "screens/render_dispatch.h"

#include "core/file_kinds.h"
#include "screens/byte_pixels.h"
#include "screens/packed_pixels.h"
#include "screens/pattern_screen.h"

namespace {

constexpr uint8_t kMostSwatches = 16;

// Whether pixels of the present depth run on from line to line without a new byte for each line.
bool pixelsRunOn(const ViewerState &viewer) {
  const FileKind *kind = findFileKind(viewer.fileExtension);
  return kind != nullptr && kind->linearBitsPerPixel == viewer.bitsPerPixel;
}

void drawFrame(ViewerState &viewer) {
  switch (viewer.bitsPerPixel) {
  case 1:
    if (viewer.colourCount == 16 && viewer.spriteMode == kFalse) renderPatternScreen(viewer);
    break;
  case 2: pixelsRunOn(viewer) ? renderCrumbLinear(viewer) : renderCrumbStream(viewer); break;
  case 4: pixelsRunOn(viewer) ? renderNibbleLinear(viewer) : renderNibbleStream(viewer); break;
  case 8: RenderBytePixels(viewer); break;
  default: break;
  }
}

} // namespace

void renderPicture(ViewerState &viewer) {
  viewer.vramPos = 0;
  viewer.frameWidth = viewer.imageWidth;
  viewer.frameHeight = viewer.imageHeight;
  // Black where no rule writes a pixel.
  viewer.frameBits.assign(static_cast<size_t>(viewer.frameWidth) * static_cast<size_t>(viewer.frameHeight), 0);
  drawFrame(viewer);

  WindowModel &window = viewer.window;
  window.menuViewPal.enabled = viewer.hasPalette == kTrue && viewer.colourCount <= kMostSwatches;
  window.menuViewPal.checked = false;
  for (Swatch &swatch : window.Label5) swatch.visible = false;

  viewer.platform.runPendingEvents(viewer.platform.context);
  viewer.platform.presentPicture(viewer.platform.context, viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
}
