#include "formats/dd_graph.h"

#include "pixels/cmp_depacker.h"
#include "screens/bload_loaders.h"
#include "screens/copy_loaders.h"
#include "state/labels.h"
#include "state/palette.h"
#include "state/platform_calls.h"
#include "state/video_memory.h"

#include <algorithm>
#include <memory>

namespace {

// Always a whole page with its palette.
constexpr BloadSettings kScreen = {.minEnd = 0x769F,
                                   .maxEnd = 0x769F,
                                   .bitsPerPixel = 4,
                                   .colourMode = 0,
                                   .imageWidth = 256,
                                   .imageHeight = 212,
                                   .colourCount = 16,
                                   .palette = BloadPalette::kInFile,
                                   .paletteAddress = 0x7680};

constexpr CopySettings kRectangle = {.maxWidth = 256,
                                     .bitsPerPixel = 4,
                                     .colourMode = 0,
                                     .colourCount = 16,
                                     .palette = CopyPalette::kBehindPixels,
                                     .highPixels = false,
                                     .keepsVram = false,
                                     .refused = false};

// A compressed picture begins with bytes per line, number of lines, and number of direct lines.
constexpr int32_t kBytesPerLinePos = 1;
constexpr int32_t kLinesPos = 2;
constexpr uint8_t kMaxBytesPerLine = 128;
constexpr uint8_t kMaxLines = 212;

} // namespace

bool loadDdGraphScreen(ViewerState &viewer) { return loadBload(viewer, kScreen); }

bool loadDdGraphRectangle(ViewerState &viewer) { return loadCopy(viewer, kRectangle); }

bool loadDdGraphCompressed(ViewerState &viewer) {
  const uint8_t bytesPerLine = readByte(viewer.inputFile, kBytesPerLinePos);
  const uint8_t lines = readByte(viewer.inputFile, kLinesPos);
  if (bytesPerLine > kMaxBytesPerLine || lines > kMaxLines) return reportNotValid(viewer);
  describePicture(viewer, {.bitsPerPixel = 4,
                           .colourCount = 16,
                           .hasPalette = kTrue,
                           .isPacked = kTrue,
                           .imageWidth = 2 * bytesPerLine,
                           .imageHeight = lines});
  setDefaultPalette(viewer);
  showPictureInfo(viewer);
  clearVram(viewer);
  loadPackedData(viewer, 1);

  const std::unique_ptr<CmpDepacker> depacker(new CmpDepacker);
  startCmpDepacker(*depacker, viewer.packedData);
  for (bool more = true; more;) {
    more = depackCmpLine(*depacker);
    runPendingEvents(viewer); // once per line: a line takes under a microsecond
  }
  const std::span<const uint8_t> picture = std::span(depacker->memory).subspan(kCmpOutput);
  std::copy(picture.begin(), picture.end(), viewer.vram.written(picture.size()).begin());
  return true;
}
