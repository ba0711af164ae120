#include "base/paths.h"

#include "base/text.h"

#include <algorithm>

size_t folderLength(std::string_view path) {
  const size_t separator = path.find_last_of(kFolderSeparators);
  return separator == std::string_view::npos ? 0 : separator + 1;
}

std::string asFolder(std::string_view path) {
  std::string folder(path);
#ifdef _WIN32
  if (folder.ends_with(':')) return folder; // the current folder of a drive
#endif
  if (!folder.ends_with(kFolderSeparators.back())) folder += kFolderSeparators.back();
  return folder;
}

std::string_view fileNameOf(std::string_view path) { return path.substr(folderLength(path)); }

std::string withLastLetters(std::string_view path, std::string_view letters) {
  path.remove_suffix(lastCharacters(path, kExtensionLength - 1).size());
  return std::string(path) + std::string(letters);
}

std::string systemPath(std::string path) {
#ifdef _WIN32
  std::replace(path.begin(), path.end(), '/', '\\');
#endif
  return path;
}
