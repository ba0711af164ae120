#include "cli/opened_file.h"

#include "core/commands.h"
#include "core/file_kinds.h"
#include "core/load_pipeline.h"
#include "video/video_mode.h"

#include <algorithm>
#include <utility>

namespace {

const HeadlessPlatform &platformOf(const ViewerState &viewer) {
  return *static_cast<const HeadlessPlatform *>(viewer.platform.context);
}

} // namespace

void openFile(OpenedFile &file, const std::string &path) {
  ViewerState &old = file.viewer;
  closeInputFile(old.inputFile);
  clearMemory(old);
  old = ViewerState(std::move(old.vram), std::move(old.packedData), std::move(old.frameBits));
  file.platform = {};
  attachHeadless(file.viewer, file.platform);
  file.platform.keepsLog = false;
  startViewer(file.viewer, "");
  openPath(file.viewer, path);
}

int32_t videoFrames(const ViewerState &viewer) {
  if (viewer.vidPlayer.fileOpen == kTrue) return viewer.vidPlayer.frameCount;
  return viewer.evaPlayer.fileOpen == kTrue ? viewer.evaPlayer.frameCount : 1;
}

int videoRate(const ViewerState &viewer) {
  const bool vid = viewer.vidPlayer.fileOpen == kTrue;
  return std::max(1, int{vid ? viewer.vidPlayer.framesPerSecond : viewer.evaPlayer.framesPerSecond});
}

bool showFrame(OpenedFile &file, int32_t frame) {
  if (frame != 0 && frame >= videoFrames(file.viewer)) return false;
  HScroll1_Change(file.viewer, frame);
  return true;
}

std::string errorLine(const ViewerState &viewer) {
  if (viewer.window.Label4.starts_with("*** Error:")) return viewer.window.Label4;
  return viewer.pictureShown == kTrue ? std::string() : platformOf(viewer).lastMessage;
}

std::string refusal(const ViewerState &viewer) {
  if (viewer.pictureShown == kTrue) return "";
  if (std::string error = errorLine(viewer); !error.empty()) return viewer.filePath + ": " + error;
  if (findFileKind(viewer.fileExtension) == nullptr) return viewer.filePath + ": not a kind of file that Korilan opens";
  return viewer.filePath + ": holds no picture";
}
