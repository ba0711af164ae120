#include "headless/opened_file.h"

#include "core/bitmap_export.h"
#include "core/commands.h"
#include "core/png_export.h"
#include "state/video_memory.h"

#include <utility>

void emptyWindow(OpenedFile &file) {
  ViewerState &viewer = file.viewer;
  closeInputFile(viewer.inputFile);
  clearMemory(viewer);
  viewer = ViewerState(std::move(viewer.vram), std::move(viewer.packedData), std::move(viewer.frameBits));
  file.platform = {};
  attachHeadless(viewer, file.platform);
  file.platform.keepsLog = false;
  startViewer(viewer, "");
}

bool thumbnailOf(const ViewerState &viewer, int32_t side, Thumbnail &thumbnail) {
  return makeThumbnail(shownPicture(viewer), hasTallPixels(viewer), side, thumbnail);
}
