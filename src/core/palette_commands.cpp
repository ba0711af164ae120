#include "core/palette_commands.h"

#include "core/commands.h"
#include "core/file_palettes.h"
#include "core/open_dialog.h"
#include "core/rendering.h"
#include "state/palette.h"

#include <algorithm>

namespace {

constexpr uint32_t kAllBits = 0xFFFFFF;

// Drawing runs events, as loading does.
void drawAnew(ViewerState &viewer) {
  viewer.activity = Activity::kLoading;
  redrawPicture(viewer);
  endActivity(viewer);
}

void loadPalette(ViewerState &viewer, const std::string &path) {
  PaletteFile bytes;
  if (!readPaletteFile(viewer, path, bytes)) return;
  if (takePalette(viewer, bytes, viewer.picture.colourCount)) {
    drawAnew(viewer);
  } else {
    setDefaultPalette(viewer);
  }
}

} // namespace

void menuLoadPal_Click(ViewerState &viewer) {
  if (!hasShortPalette(viewer)) return;
  const std::string path = askPaletteName(viewer);
  if (!path.empty()) loadPalette(viewer, path);
}

void dropFile(ViewerState &viewer, const std::string &path) {
  if (viewer.pictureShown != kTrue || !isPaletteFile(path)) {
    openPath(viewer, path);
  } else if (viewer.activity == Activity::kIdle && viewer.window.menuLoadPal.enabled) {
    loadPalette(viewer, path);
  }
}

void menuSavePal_Click(ViewerState &viewer) {
  if (viewer.picture.hasPalette != kTrue) return;
  viewer.storedPaletteCount = static_cast<uint8_t>(viewer.picture.colourCount);
  std::copy_n(viewer.palette.begin(), viewer.storedPaletteCount, viewer.storedPalette.begin());
  viewer.window.menuRestPal.enabled = true;
}

void menuRestPal_Click(ViewerState &viewer) {
  if (viewer.picture.hasPalette != kTrue || viewer.storedPaletteCount != viewer.picture.colourCount) return;
  viewer.window.Label4 = "Rendering...";
  std::copy_n(viewer.storedPalette.begin(), viewer.storedPaletteCount, viewer.palette.begin());
  drawAnew(viewer);
}

void menuViewPal_Click(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  if (window.menuViewPal.checked) {
    hideSwatches(window);
    return;
  }
  if (!hasShortPalette(viewer)) return;
  window.menuViewPal.checked = true;
  for (size_t i = 0; i < window.Label5.size(); ++i) {
    const uint32_t colour = viewer.palette[i];
    const bool visible = i < static_cast<size_t>(viewer.picture.colourCount);
    window.Label5[i] = {.visible = visible, .background = colour, .text = colour ^ kAllBits};
  }
}
