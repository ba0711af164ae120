#include "state/viewer_state.h"

#include <algorithm>

constexpr FileKind kNoKind = {"", "", nullptr};

ViewerState::ViewerState(VideoMemory &&oldVram, VideoMemory &&oldPackedData, std::vector<uint32_t> &&oldFrame)
    : vram(std::move(oldVram)), packedData(std::move(oldPackedData)), frameBits(std::move(oldFrame)) {
  frameBits.clear();
}

size_t pixelCountOf(const ViewerState &viewer) {
  return static_cast<size_t>(viewer.imageWidth) * static_cast<size_t>(viewer.imageHeight);
}

std::string openedPath(const ViewerState &viewer) { return viewer.folderPath + viewer.fileName; }

void takePicture(ViewerState &viewer) {
  viewer.pictureKind = viewer.kind;
  viewer.picture = descriptionOf(viewer);
  viewer.picturePath = openedPath(viewer);
  viewer.pictureShown = kTrue;
}

void blacken(ViewerState &viewer) { std::fill(viewer.frameBits.begin(), viewer.frameBits.end(), 0U); }

bool videoPlaying(const ViewerState &viewer) {
  return viewer.activity == Activity::kPlaying && viewer.request.kind == Request::kNone;
}

void requestAfterwards(ViewerState &viewer, const Request &request) {
  if (viewer.request.kind != Request::kExit) viewer.request = request;
}
