#include "core/recent.h"

#include "base/text.h"
#include "core/commands.h"
#include "state/platform_calls.h"

#include <string_view>

//  value   text
//  Recent  full paths, the latest one first, with kSeparator between them

namespace {

constexpr const char *kValueName = "Recent";
constexpr char kSeparator = '|'; // in no path of Windows
constexpr size_t kMaxRecentFiles = 10;

std::vector<std::string> storedFiles(const ViewerState &viewer) {
  const std::string text = readValue(viewer, kValueName).value_or("");
  std::vector<std::string> files;
  for (size_t start = 0; start < text.size() && files.size() < kMaxRecentFiles;) {
    const size_t end = std::min(text.find(kSeparator, start), text.size());
    if (end > start) files.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return files;
}

// "&1 C:\PICTURES\COAST.SC5"; the last access key is 0.
std::string itemText(size_t index, const std::string &path) {
  constexpr size_t kMaxCharacters = 60;
  const bool whole = characterCount(path) <= kMaxCharacters;
  std::string text = "&" + std::to_string((index + 1) % kMaxRecentFiles) + (whole ? " " : " ...");
  for (const char letter : whole ? std::string_view(path) : lastCharacters(path, kMaxCharacters)) {
    text += letter;
    if (letter == '&') text += letter;
  }
  return text;
}

void showFiles(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  window.recentFiles = {};
  window.menuRecent.enabled = !viewer.recentFiles.empty();
  if (viewer.recentFiles.empty()) return;
  std::vector<std::string> &captions = window.recentFiles.captions;
  for (const std::string &path : viewer.recentFiles) captions.push_back(itemText(captions.size(), path));
  captions.insert(captions.end(), {"", "&Clear"});
}

void storeFiles(ViewerState &viewer) {
  std::string text;
  for (const std::string &path : viewer.recentFiles) text += (text.empty() ? "" : std::string(1, kSeparator)) + path;
  writeValue(viewer, kValueName, text);
  showFiles(viewer);
}

} // namespace

void loadRecentFiles(ViewerState &viewer) {
  viewer.recentFiles = storedFiles(viewer);
  showFiles(viewer);
}

void noteRecentFile(ViewerState &viewer) {
  const bool shown = viewer.pictureShown == kTrue && viewer.loadError.empty();
  if (!shown || viewer.picturePath != viewer.filePath) return;
  const std::string path = viewer.platform.files->fullPath(viewer.filePath.c_str());
  std::vector<std::string> &files = viewer.recentFiles;
  files = storedFiles(viewer);
  if (!files.empty() && files.front() == path) return showFiles(viewer); // opened again
  std::erase_if(files, [name = upperCased(path)](const std::string &file) { return upperCased(file) == name; });
  files.insert(files.begin(), path);
  if (files.size() > kMaxRecentFiles) files.pop_back();
  storeFiles(viewer);
}

void chooseRecentFile(ViewerState &viewer, size_t index) {
  if (index < viewer.recentFiles.size()) {
    openPath(viewer, std::string(viewer.recentFiles[index]));
  } else {
    viewer.recentFiles.clear();
    storeFiles(viewer);
  }
}
