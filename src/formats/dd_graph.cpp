#include "formats/dd_graph.h"

#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "state/palette.h"
#include "pixels/cmp_depacker.h"
#include "screens/bload_loaders.h"
#include "screens/copy_loaders.h"

#include <algorithm>
#include <memory>

namespace {

// Always a whole page with its palette.
constexpr BloadSettings kScreen = {.endLowest = 0x769F,
                                   .endHighest = 0x769F,
                                   .bitsPerPixel = 4,
                                   .colourMode = 0,
                                   .imageWidth = 256,
                                   .imageHeight = 212,
                                   .colourCount = 16,
                                   .palette = BloadPalette::kInFile,
                                   .paletteAddress = 0x7680,
                                   .packedExtension = {}};

constexpr CopySettings kRectangle = {.mostWidth = 256,
                                     .bitsPerPixel = 4,
                                     .colourMode = 0,
                                     .colourCount = 16,
                                     .palette = CopyPalette::kBehindPixels,
                                     .highPixels = false,
                                     .keepsVram = false,
                                     .refused = false};

// A compressed picture begins with the bytes of a line, the number of lines, and the number of lines without a
// difference to the line above.
constexpr int32_t kBytesPerLinePos = 1;
constexpr int32_t kLinesPos = 2;
constexpr uint8_t kMostBytesPerLine = 128;
constexpr uint8_t kMostLines = 212;

} // namespace

void loadDdGraphScreen(ViewerState &viewer) { loadBload(viewer, kScreen); }

void loadDdGraphRectangle(ViewerState &viewer) { loadCopy(viewer, kRectangle); }

void loadDdGraphCompressed(ViewerState &viewer) {
  if (!openFileForReading(viewer)) return;
  const uint8_t bytesPerLine = readByte(viewer.inputFile, kBytesPerLinePos);
  const uint8_t lines = readByte(viewer.inputFile, kLinesPos);
  if (bytesPerLine > kMostBytesPerLine || lines > kMostLines) {
    reportNotValid(viewer);
    return;
  }
  viewer.bitsPerPixel = 4;
  viewer.colourCount = 16;
  viewer.colourMode = 0;
  viewer.hasPalette = kTrue;
  viewer.imageWidth = 2 * bytesPerLine;
  viewer.imageHeight = lines;
  viewer.isPacked = kTrue;
  setDefaultPalette(viewer);
  showPictureInfo(viewer);
  clearVram(viewer);
  loadPackedData(viewer, 1);

  const auto depacker = std::make_unique_for_overwrite<CmpDepacker>();
  startCmpDepacker(*depacker, viewer.packedData);
  for (bool more = true; more;) {
    more = depackCmpLine(*depacker);
    // One pass stands for those of the line's bytes too: a line takes less than a microsecond.
    viewer.platform.runPendingEvents(viewer.platform.context);
  }
  std::copy(depacker->memory.begin() + kCmpOutput, depacker->memory.end(), viewer.vram.begin());
  viewer.vram.use(kCmpMemoryBytes - kCmpOutput);
  renderAndShow(viewer);
}
