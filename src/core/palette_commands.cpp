#include "core/palette_commands.h"

#include "core/commands.h"
#include "state/input_file.h"
#include "core/open_dialog.h"
#include "state/palette.h"
#include "core/display_geometry.h"
#include "core/render_dispatch.h"

#include <algorithm>
#include <array>

namespace {

constexpr size_t kPaletteFileBytes = size_t{2} * kShortPaletteEntries;
constexpr uint32_t kAllBits = 0xFFFFFF;

using PaletteFile = std::array<uint8_t, kPaletteFileBytes>;

// Returns false where the file is too short or cannot be opened.
bool readPaletteFile(const ViewerState &viewer, const std::string &path, PaletteFile &bytes) {
  InputFile file;
  const bool whole = openInputFile(file, *viewer.platform.files, path) && readBytes(file, 1, bytes) == bytes.size();
  closeInputFile(file);
  return whole;
}

// Takes over the first `colourCount` entries. Returns false where one is no colour; those before it are taken then.
bool takePalette(ViewerState &viewer, const PaletteFile &bytes) {
  uint32_t sum = 0;
  for (size_t i = 0; i < viewer.colourCount; ++i) {
    const auto colour = fileColour(bytes[2 * i], bytes[2 * i + 1]);
    if (!colour) return false;
    viewer.palette[i] = *colour;
    sum += *colour;
  }
  if (sum == 0) setDefaultPalette(viewer); // a palette that is all black is refused: intended
  return true;
}

// Drawing lets events run, as loading does.
void drawAnew(ViewerState &viewer) {
  viewer.loadUnderWay = true;
  if (renderPicture(viewer)) {
    ApplyDisplayGeometry(viewer);
    viewer.window.Label4.clear();
  }
  endLoad(viewer);
}

void hideSwatches(WindowModel &window) {
  for (Swatch &swatch : window.Label5) swatch.visible = false;
}

} // namespace

void menuLoadPal_Click(ViewerState &viewer) {
  if (!hasShortPalette(viewer)) return;
  viewer.paletteDialog = kTrue;
  const std::string path = askOpenFileName(viewer, viewer.folderPath);
  viewer.paletteDialog = kFalse;
  PaletteFile bytes{};
  if (path.empty() || !readPaletteFile(viewer, path, bytes)) return;
  if (!takePalette(viewer, bytes)) {
    setDefaultPalette(viewer);
    return;
  }
  drawAnew(viewer);
}

void menuSavePal_Click(ViewerState &viewer) {
  if (viewer.hasPalette != kTrue) return;
  std::copy_n(viewer.palette.begin(), viewer.colourCount, viewer.storedPalette.begin());
  viewer.storedPaletteCount = viewer.colourCount;
  viewer.window.menuRestPal.enabled = true;
}

void menuRestPal_Click(ViewerState &viewer) {
  if (viewer.hasPalette != kTrue || viewer.storedPaletteCount != viewer.colourCount) return;
  viewer.window.Label4 = "Rendering...";
  std::copy_n(viewer.storedPalette.begin(), viewer.colourCount, viewer.palette.begin());
  drawAnew(viewer);
}

void menuViewPal_Click(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  if (window.menuViewPal.checked) {
    window.menuViewPal.checked = false;
    hideSwatches(window);
    return;
  }
  if (!hasShortPalette(viewer)) return;
  window.menuViewPal.checked = true;
  for (size_t i = 0; i < window.Label5.size(); ++i) {
    const uint32_t colour = viewer.palette[i];
    window.Label5[i] = {.visible = i < viewer.colourCount, .background = colour, .text = colour ^ kAllBits};
  }
}
