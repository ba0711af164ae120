#include "core/palette_commands.h"

#include "core/commands.h"
#include "core/open_dialog.h"
#include "core/rendering.h"
#include "state/input_file.h"
#include "state/palette.h"

#include <algorithm>
#include <array>

namespace {

constexpr size_t kPaletteFileBytes = size_t{2} * kShortPaletteEntries;
constexpr uint32_t kAllBits = 0xFFFFFF;

using PaletteFile = std::array<uint8_t, kPaletteFileBytes>;

// Returns false if the file is too short or cannot be opened.
bool readPaletteFile(const ViewerState &viewer, const std::string &path, PaletteFile &bytes) {
  InputFile file;
  const bool whole = openInputFile(file, *viewer.platform.files, path) && readBytes(file, 1, bytes) == bytes.size();
  closeInputFile(file);
  return whole;
}

// Drawing runs events, as loading does.
void drawAnew(ViewerState &viewer) {
  viewer.activity = Activity::kLoading;
  redrawPicture(viewer);
  endActivity(viewer);
}

} // namespace

void menuLoadPal_Click(ViewerState &viewer) {
  if (!hasShortPalette(viewer)) return;
  const std::string path = askPaletteName(viewer);
  PaletteFile bytes{};
  if (path.empty() || !readPaletteFile(viewer, path, bytes)) return;
  const auto count = static_cast<size_t>(viewer.picture.colourCount);
  if (takeFileColours(viewer, std::span(bytes).first(2 * count)) < count) {
    setDefaultPalette(viewer);
    return;
  }
  drawAnew(viewer);
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
