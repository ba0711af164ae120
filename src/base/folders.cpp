#include "base/folders.h"

#include "base/paths.h"

#include <utility>

std::vector<std::string> listFiles(const char *folder) {
  std::vector<FolderEntry> entries;
  (void)listEntries(folder, entries); // nothing is listed then
  std::vector<std::string> names;
  for (FolderEntry &entry : entries) {
    if (!entry.isFolder) names.push_back(std::move(entry.name));
  }
  return names;
}

std::string makeFolders(const std::string &path) {
  std::vector<size_t> missing; // ends of the folders to create, the deepest first
  size_t end = path.size();
  while (end != 0 && end != std::string::npos && !isFolder(path.substr(0, end))) {
    missing.push_back(end);
    end = path.find_last_of(kFolderSeparators.back(), end - 1);
  }
  std::string failure;
  for (; !missing.empty() && failure.empty(); missing.pop_back()) failure = makeFolder(path.substr(0, missing.back()));
  return failure;
}
