#include "core/colour_readout.h"

#include "core/levels.h"
#include "core/rendering.h"

#include <optional>

namespace {

// A larger picture is not drawn a second time for its entries: it would need as much memory again.
constexpr size_t kMaxEntryPixels = size_t{16} << 20;

// The palette entry of the pixel. Its colour alone does not identify it: two entries may have the same colour.
std::optional<uint32_t> entryAt(ViewerState &viewer, size_t pixel) {
  if (viewer.picture.hasPalette != kTrue || viewer.frameBits.size() > kMaxEntryPixels) return std::nullopt;
  if (viewer.entryBitsSerial != viewer.window.pictureSerial) {
    viewer.entryBits = renderEntries(viewer);
    viewer.entryBitsSerial = viewer.window.pictureSerial;
  }
  if (pixel >= viewer.entryBits.size()) return std::nullopt;
  const uint32_t word = viewer.entryBits[pixel];
  const uint32_t entry = word & ~kEntryMark;
  // After a failed load `vram` may no longer be the picture's.
  const bool known = (word & kEntryMark) != 0 && viewer.palette[entry] == viewer.frameBits[pixel];
  return known ? std::optional(entry) : std::nullopt;
}

// Stores the mouse's place. Whether a command's text stays: the mouse has not moved since, it has only come back from a
// menu or a dialog.
bool restsAt(ViewerState &viewer, int32_t x, int32_t y) {
  const bool moved = viewer.mouseX >= 0 && (x != viewer.mouseX || y != viewer.mouseY);
  viewer.mouseX = x;
  viewer.mouseY = y;
  return !moved && viewer.window.readout.ofCommand;
}

// The mouse is on no pixel.
void clearReadout(ViewerState &viewer) { viewer.window.readout = {}; }

bool canBeRead(const ViewerState &viewer) {
  return viewer.activity != Activity::kLoading && viewer.pictureShown == kTrue;
}

void readPixel(ViewerState &viewer, int64_t column, int64_t line) {
  const auto pixel = static_cast<size_t>(line * viewer.frameWidth + column);
  if (pixel >= viewer.frameBits.size()) return clearReadout(viewer); // the picture is being replaced
  const uint32_t colour = viewer.frameBits[pixel];

  std::string text = std::to_string(column) + ", " + std::to_string(line) + "   ";
  if (const auto entry = entryAt(viewer, pixel)) text += "color " + std::to_string(*entry) + "   ";
  viewer.window.readout = {.text = text + colourAndLevels(colour), .colour = colour};
}

} // namespace

void moveMouse(ViewerState &viewer, int32_t x, int32_t y) {
  if (restsAt(viewer, x, y)) return;
  const Stretch &stretch = viewer.window.stretch;
  if (!canBeRead(viewer) || x < 0 || y < 0) return clearReadout(viewer);
  x /= viewer.window.scale;
  y /= viewer.window.scale;
  if (x >= stretch.targetWidth || y >= stretch.targetHeight) return clearReadout(viewer);
  readPixel(viewer, int64_t{x} * stretch.sourceWidth / stretch.targetWidth,
            int64_t{y} * stretch.sourceHeight / stretch.targetHeight);
}

void moveMouseToPixel(ViewerState &viewer, int32_t column, int32_t line) {
  if (restsAt(viewer, column, line)) return;
  const bool inside = column >= 0 && column < viewer.frameWidth && line >= 0;
  canBeRead(viewer) && inside ? readPixel(viewer, column, line) : clearReadout(viewer);
}

void leaveMouse(ViewerState &viewer) {
  viewer.mouseX = viewer.mouseY = -1;
  if (!viewer.window.readout.ofCommand) clearReadout(viewer);
}
