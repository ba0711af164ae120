#include "core/colour_readout.h"

#include "base/text.h"
#include "core/render_dispatch.h"

#include <optional>

namespace {

// The palette entry that the pixel was drawn with. Two entries may have one colour, so the picture itself cannot tell.
std::optional<uint32_t> entryAt(ViewerState &viewer, size_t pixel) {
  if (viewer.hasPalette != kTrue) return std::nullopt; // a video's frames do not even stand in video memory
  if (viewer.entryBitsSerial != viewer.window.pictureSerial) {
    viewer.entryBits = renderEntries(viewer);
    viewer.entryBitsSerial = viewer.window.pictureSerial;
  }
  if (pixel >= viewer.entryBits.size()) return std::nullopt;
  const uint32_t word = viewer.entryBits[pixel];
  const uint32_t entry = word & ~kEntryMark;
  // After a file that failed, video memory may no longer be that of the picture.
  const bool known = (word & kEntryMark) != 0 && viewer.palette[entry] == viewer.frameBits[pixel];
  return known ? std::optional(entry) : std::nullopt;
}

} // namespace

void moveMouse(ViewerState &viewer, int32_t x, int32_t y) {
  const Stretch &stretch = viewer.window.stretch;
  if (viewer.loadUnderWay || viewer.pictureShown != kTrue || x < 0 || y < 0 || x >= stretch.targetWidth ||
      y >= stretch.targetHeight) {
    leaveMouse(viewer);
    return;
  }
  const int64_t column = int64_t{x} * stretch.sourceWidth / stretch.targetWidth;
  const int64_t line = int64_t{y} * stretch.sourceHeight / stretch.targetHeight;
  const auto pixel = static_cast<size_t>(line * viewer.frameWidth + column);
  if (pixel >= viewer.frameBits.size()) { // in the midst of a change of the picture
    leaveMouse(viewer);
    return;
  }
  const uint32_t colour = viewer.frameBits[pixel];

  std::string text = std::to_string(column) + ", " + std::to_string(line) + "   ";
  if (const auto entry = entryAt(viewer, pixel)) text += "color " + std::to_string(*entry) + "   ";
  viewer.window.readout = {.text = text + colourCode(colour), .colour = colour};
}

void leaveMouse(ViewerState &viewer) { viewer.window.readout = {}; }
