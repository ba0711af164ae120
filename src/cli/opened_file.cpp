#include "cli/opened_file.h"

#include "base/disk_files.h"
#include "base/memory_files.h"
#include "core/commands.h"
#include "core/file_kinds.h"
#include "core/palette_commands.h"
#include "core/video_commands.h"
#include "state/palette.h"

namespace {

// Returns what went wrong, or an empty text.
std::string loadPalette(OpenedFile &file, const std::string &path) {
  if (!hasShortPalette(file.viewer)) return "";
  if (std::string failure = openFailure(path); !failure.empty()) return path + ": " + failure;
  const uint32_t drawn = file.viewer.window.pictureSerial;
  file.platform.chosenFiles = {path};
  menuLoadPal_Click(file.viewer);
  return file.viewer.window.pictureSerial != drawn ? "" : path + ": is no palette";
}

// Returns what went wrong beside the viewer's own error, or an empty text.
std::string openWithPalette(OpenedFile &file, const CliInput &input, const std::string &palette) {
  if (!input.failure.empty()) return input.failure;
  ViewerState &viewer = file.viewer;
  if (input.standardInput) viewer.platform.files = &memoryFileOps();
  openPath(viewer, input.path);
  viewer.platform.files = &filesWithDisks();
  if (viewer.pictureShown == kTrue) return palette.empty() ? "" : loadPalette(file, palette);
  return input.standardInput ? "" : openFailure(input.path);
}

std::string whyNotShown(const ViewerState &viewer) {
  if (!viewer.loadError.empty()) return viewer.loadError;
  return findFileKind(viewer.fileExtension) == nullptr ? "not a kind of file that Korilan opens" : "holds no picture";
}

} // namespace

void openInput(OpenedFile &file, const CliInput &input, const std::string &palette) {
  ViewerState &viewer = file.viewer;
  emptyWindow(file);
  viewer.filePath = input.path;
  const std::string failure = openWithPalette(file, input, palette);
  if (!failure.empty()) {
    viewer.loadError = failure;
    viewer.pictureShown = kFalse;
  }
  if (viewer.pictureShown != kTrue) viewer.loadError = whyNotShown(viewer);
}

int32_t framesOf(const ViewerState &viewer) { return viewer.player != nullptr ? viewer.player->frames(viewer) : 1; }

bool showFrame(OpenedFile &file, int32_t frame) {
  if (frame != 0 && frame >= framesOf(file.viewer)) return false;
  HScroll1_Change(file.viewer, frame);
  return true;
}

std::string refusal(const ViewerState &viewer) {
  if (viewer.pictureShown == kTrue) return "";
  return viewer.filePath + ": " + whyNotShown(viewer);
}
