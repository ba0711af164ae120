#include "cli/opened_file.h"

#include "core/commands.h"
#include "core/file_kinds.h"

void openFile(OpenedFile &file, const std::string &path) {
  attachHeadless(file.viewer, file.platform);
  startViewer(file.viewer, "");
  openPath(file.viewer, path);
}

std::string errorLine(const ViewerState &viewer) {
  return viewer.window.Label4.starts_with("*** Error:") ? viewer.window.Label4 : std::string();
}

std::string refusal(const ViewerState &viewer) {
  if (viewer.pictureShown == kTrue) return "";
  if (std::string error = errorLine(viewer); !error.empty()) return viewer.filePath + ": " + error;
  if (findFileKind(viewer.fileExtension) == nullptr) return viewer.filePath + ": not a kind of file that Korilan opens";
  return viewer.filePath + ": holds no picture";
}
