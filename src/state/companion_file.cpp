#include "state/companion_file.h"

#include "base/paths.h"
#include "base/text.h"

std::string companionName(const ViewerState &viewer) {
  const char *letters = viewer.kind->traits.companion;
  return letters != nullptr ? withLastLetters(viewer.fileName, letters) : std::string();
}

bool openCompanion(const ViewerState &viewer, InputFile &file) {
  const std::string name = companionName(viewer);
  if (name.empty()) return false;
  const FileOps &files = *viewer.platform.files;
  if (openInputFile(file, files, viewer.folderPath + name)) return true;
  const std::string wanted = upperCased(name);
  for (const std::string &other : files.listFolder(viewer.folderPath.c_str())) {
    if (upperCased(other) == wanted && openInputFile(file, files, viewer.folderPath + other)) return true;
  }
  return false;
}
