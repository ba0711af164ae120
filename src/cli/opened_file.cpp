#include "cli/opened_file.h"

#include "core/commands.h"
#include "core/file_kinds.h"
#include "core/video_commands.h"
#include "state/video_memory.h"

#include <utility>

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

int32_t framesOf(const ViewerState &viewer) { return viewer.player != nullptr ? viewer.player->frames(viewer) : 1; }

bool showFrame(OpenedFile &file, int32_t frame) {
  if (frame != 0 && frame >= framesOf(file.viewer)) return false;
  HScroll1_Change(file.viewer, frame);
  return true;
}

std::string refusal(const ViewerState &viewer) {
  if (viewer.pictureShown == kTrue) return "";
  if (!viewer.loadError.empty()) return viewer.filePath + ": " + viewer.loadError;
  if (findFileKind(viewer.fileExtension) == nullptr) return viewer.filePath + ": not a kind of file that Korilan opens";
  return viewer.filePath + ": holds no picture";
}
