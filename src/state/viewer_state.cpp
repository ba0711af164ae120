#include "state/viewer_state.h"

std::string openedPath(const ViewerState &viewer) { return viewer.folderPath + viewer.fileName; }

bool videoOpen(const ViewerState &viewer) {
  return viewer.evaPlayer.fileOpen == kTrue || viewer.vidPlayer.fileOpen == kTrue;
}

bool videoPlaying(const ViewerState &viewer) {
  return viewer.evaPlayer.playing == kTrue || viewer.vidPlayer.playing == kTrue;
}

ViewerState::ViewerState(VideoMemory &&oldVram, VideoMemory &&oldPackedData, std::vector<uint32_t> &&oldFrame)
    : vram(std::move(oldVram)), packedData(std::move(oldPackedData)), frameBits(std::move(oldFrame)) {
  frameBits.clear();
}

void stopPlayback(ViewerState &viewer) {
  viewer.evaPlayer.playing = kFalse;
  viewer.vidPlayer.playing = kFalse;
}

size_t pixelCountOf(const ViewerState &viewer) {
  return static_cast<size_t>(viewer.imageWidth) * static_cast<size_t>(viewer.imageHeight);
}
