#include "core/load_pipeline.h"

#include "screens/byte_pixels.h"
#include "core/display_geometry.h"
#include "core/render_dispatch.h"

#include <algorithm>
#include <string>

namespace {

// The colour text of the picture's description, or nullptr where the description has none.
const char *colourText(const ViewerState &viewer) {
  switch (viewer.bitsPerPixel) {
  case 16: return "32K colors";
  case 8:
    switch (viewer.colourMode) {
    case ColourModePalette: return "64 colors";
    case ColourModeGrb332: return "256 colors";
    case ColourModeYjk: return "YJK colors";
    case ColourModeYuv: return "YUV colors";
    case ColourModeYae: return "YAE colors";
    default: return nullptr;
    }
  case 4: return "16 colors";
  case 2: return "4 colors";
  case 1:
    if (viewer.colourCount == 16) return "16 colors";
    return viewer.colourCount == 2 ? "2 colors" : nullptr;
  default: return nullptr;
  }
}

// Reads what the file gives and returns how many bytes these are.
size_t readInto(const ViewerState &viewer, int32_t position, VideoMemory &memory) {
  const size_t given = readAvailableBytes(viewer.inputFile, position, memory);
  memory.use(given);
  return given;
}

} // namespace

void showPictureInfo(ViewerState &viewer) {
  if (videoPlaying(viewer)) return;
  WindowModel &window = viewer.window;
  window.Label4.clear();
  if (viewer.fileLoaded != kTrue) {
    window.Label1.clear();
    window.Label2.clear();
    window.Label3.clear();
    return;
  }
  window.Label1 = std::to_string(viewer.imageWidth) + "x" + std::to_string(viewer.imageHeight);
  window.Label2 = std::to_string(viewer.bitsPerPixel) + " bpp";
  if (const char *text = colourText(viewer); text != nullptr) window.Label3 = text;
}

bool pictureFits(int64_t width, int64_t height) { return width <= 0 || height <= 0 || width <= kMaxPixels / height; }

void loadVram(ViewerState &viewer, int32_t position, size_t pictureBytes) {
  viewer.window.Label4 = "Loading...";
  viewer.vram.resize(std::max(kVideoMemoryBytes, pictureBytes));
  viewer.vram.clearFrom(readInto(viewer, position, viewer.vram));
}

void overlayVram(ViewerState &viewer, int32_t position) {
  viewer.window.Label4 = "Loading...";
  viewer.vram.resize(kVideoMemoryBytes);
  readInto(viewer, position, viewer.vram);
}

void clearVram(ViewerState &viewer, size_t pictureBytes) {
  viewer.vram.resize(std::max(kVideoMemoryBytes, pictureBytes));
  viewer.vram.clearFrom(0);
}

void clearMemory(ViewerState &viewer) {
  for (VideoMemory *memory : {&viewer.vram, &viewer.packedData}) {
    memory->clearFrom(0);
    memory->resize(kVideoMemoryBytes);
  }
}

void loadPackedData(ViewerState &viewer, int32_t position, size_t mostBytes) {
  viewer.window.Label4 = "Loading...";
  viewer.packedData.resize(std::max(kVideoMemoryBytes, mostBytes));
  viewer.packedData.clearFrom(readInto(viewer, position, viewer.packedData));
  viewer.window.Label4 = "Depacking...";
}

void renderAndShow(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  window.Label4 = "Rendering...";
  if (!renderPicture(viewer)) return;
  viewer.picturePath = viewer.filePath;
  viewer.pictureShown = kTrue;
  ApplyDisplayGeometry(viewer);
  window.Label4.clear();
  for (MenuItem *item : {&window.menuView, &window.menuClose, &window.menuSaveBMP, &window.menuCopyClipboard}) {
    item->enabled = true;
  }
}
