#include "state/video_memory.h"

#include <algorithm>

namespace {

// Reads the file from `position` on. Returns how many bytes were read.
size_t readInto(const ViewerState &viewer, int32_t position, VideoMemory &memory) {
  const int64_t rest = std::max<int64_t>(0, inputFileLength(viewer.inputFile) - position + 1);
  return readAvailableBytes(viewer.inputFile, position, memory.written(static_cast<size_t>(rest)));
}

} // namespace

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

void loadPackedData(ViewerState &viewer, int32_t position, size_t maxBytes) {
  viewer.window.Label4 = "Loading...";
  viewer.packedData.resize(std::max(kVideoMemoryBytes, maxBytes));
  viewer.packedData.clearFrom(readInto(viewer, position, viewer.packedData));
  viewer.window.Label4 = "Depacking...";
}
