#include "core/rendering.h"

#include "base/buffers.h"
#include "core/display_geometry.h"
#include "formats/publisher_page.h"
#include "formats/symbos_graphic.h"
#include "formats/vscreen_level.h"
#include "screens/byte_pixels.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"
#include "screens/packed_pixels.h"
#include "screens/pattern_screen.h"
#include "state/labels.h"
#include "state/palette.h"
#include "state/platform_calls.h"
#include "state/video_memory.h"

#include <algorithm>
#include <array>

namespace {

struct Renderer {
  uint8_t bitsPerPixel;
  bool (*applies)(const ViewerState &viewer);
  void (*draw)(ViewerState &viewer);
};

bool always(const ViewerState &) { return true; }
bool isTileSet(const ViewerState &viewer) { return viewer.spriteMode == kTrue; }
bool isPattern(const ViewerState &viewer) { return viewer.colourCount == 16 && viewer.spriteMode == kFalse; }
bool isTwoColours(const ViewerState &viewer) { return viewer.colourCount == 2; }
bool isTiled(const ViewerState &viewer) { return viewer.pictureKind->traits.tiles; }
bool runsOn(const ViewerState &viewer) { return viewer.pictureKind->traits.runOnBits == viewer.bitsPerPixel; }
bool isStream(const ViewerState &viewer) { return !isTiled(viewer) && !runsOn(viewer); }
bool hasLinePalettes(const ViewerState &viewer) { return viewer.pictureKind->traits.linePalettes; }

// All that apply run, in this order. Each writes the whole frame.
constexpr std::array<Renderer, 13> kRenderers{{
    {1, isTileSet, renderTileSet},
    {1, isPattern, renderPatternScreen},
    {1, isTwoColours, renderPublisherPage},
    {2, isTiled, renderSymbosTiles},
    {2, runsOn, renderCrumbLinear},
    {2, isStream, renderCrumbStream},
    {3, always, renderSpriteSet},
    {4, isTiled, renderSymbosTiles},
    {4, runsOn, renderNibbleLinear},
    {4, isStream, renderNibbleStream},
    {4, hasLinePalettes, RenderHamPicture},
    {8, always, RenderBytePixels},
    {16, always, RenderG9b16},
}};

// The frame is black if no renderer applies.
void drawFrame(ViewerState &viewer) {
  bool drawn = false;
  viewer.vramPos = 0;
  for (const Renderer &renderer : kRenderers) {
    if (renderer.bitsPerPixel != viewer.bitsPerPixel || !renderer.applies(viewer)) continue;
    renderer.draw(viewer);
    drawn = true;
  }
  if (!drawn) blacken(viewer);
}

// Sizes the frame for the loaded picture. Returns false, with the frame unchanged, if there is not enough memory.
bool sizeFrame(ViewerState &viewer) {
  // An empty picture may have one side of any length.
  constexpr auto kMaxSide = static_cast<int32_t>(kMaxPixels);
  const int32_t width = std::clamp(viewer.imageWidth, 0, kMaxSide);
  const int32_t height = std::clamp(viewer.imageHeight, 0, kMaxSide);
  const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
  if (!reserve(viewer.frameBits, pixels)) return false;
  viewer.frameWidth = width;
  viewer.frameHeight = height;
  viewer.frameBits.resize(pixels);
  shrink(viewer.frameBits);
  return true;
}

void renderPicture(ViewerState &viewer) {
  drawFrame(viewer);
  viewer.window.menuViewPal.enabled = hasShortPalette(viewer);
  hideSwatches(viewer.window);
  runPendingEvents(viewer);
  presentPicture(viewer);
  ApplyDisplayGeometry(viewer);
  viewer.window.Label4.clear();
}

} // namespace

void renderAndShow(ViewerState &viewer) {
  viewer.window.Label4 = "Rendering...";
  if (!sizeFrame(viewer)) {
    reportNoMemory(viewer);
    return;
  }
  takePicture(viewer);
  renderPicture(viewer);
  enablePictureCommands(viewer.window);
}

void redrawPicture(ViewerState &viewer) {
  describePicture(viewer, viewer.picture);
  renderPicture(viewer);
}

void drawEntries(ViewerState &viewer) {
  const auto loaded = descriptionOf(viewer);
  const auto palette = viewer.palette;
  const int32_t vramPos = viewer.vramPos;
  describePicture(viewer, viewer.picture);
  for (uint32_t entry = 0; entry < kPaletteEntries; ++entry) viewer.palette[entry] = kEntryMark + entry;
  drawFrame(viewer);
  viewer.palette = palette;
  viewer.vramPos = vramPos;
  describePicture(viewer, loaded);
}

std::vector<uint32_t> renderEntries(ViewerState &viewer) {
  std::vector<uint32_t> entries;
  if (!reserve(entries, viewer.frameBits.size())) return {};
  entries.resize(viewer.frameBits.size());
  viewer.frameBits.swap(entries);
  drawEntries(viewer);
  viewer.frameBits.swap(entries);
  return entries;
}
