#include "core/folder_navigation.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/commands.h"
#include "core/opening.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace {

// A file is listed if its last four characters occur anywhere in this text, so "5 .G" is listed too: intended, one
// search covers the whole list.
constexpr std::string_view kSupportedExtensions =
    ".GE5 .GE8 .DAT .CMP .PCT .STP .PIC .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 "
    ".SCB .SRB .S11 .SCC .SRC .S12 .GL5 .GL6 .GL7 .GL8 .GLA .GLB .GLC .HAM .G9B .SCR .TGS .SGX .VID .EVA .EV8";

// folderFileCount has 16 bits.
constexpr size_t kMaxFiles = std::numeric_limits<int16_t>::max();

bool supported(const std::string &name) {
  return kSupportedExtensions.find(upperCased(lastCharacters(name, kExtensionLength))) != std::string_view::npos;
}

// Whether `path` without `name` at its end is a folder. After a file of an unknown kind, the caption, and so the length
// of `name`, may be another file's.
bool isFileName(std::string_view path, std::string_view name) {
  path.remove_suffix(name.size());
  const bool folder = path.empty() || kFolderSeparators.find(path.back()) != std::string_view::npos;
  return folder && name.find_first_of(kFolderSeparators) == std::string_view::npos;
}

using Step = int (*)(int index, int count);

void openStep(ViewerState &viewer, Step step) {
  if (viewer.filePath.empty() || videoPlaying(viewer) || viewer.activity == Activity::kLoading) return;
  rebuildFolderList(viewer);
  viewer.vidPlayer.headerReady = kFalse;
  if (viewer.folderFileCount == 0) return;
  viewer.folderIndex = static_cast<int16_t>(step(viewer.folderIndex, viewer.folderFileCount));
  openPath(viewer, viewer.folderPrefix + viewer.folderFiles[static_cast<size_t>(viewer.folderIndex) - 1]);
}

} // namespace

void rebuildFolderList(ViewerState &viewer) {
  const std::string &caption = viewer.window.caption;
  if (caption == kEmptyCaption) return;
  const size_t letters = characterCount(std::string_view(caption).substr(kCaptionStart.size()));
  std::string_view name = lastCharacters(viewer.filePath, letters);
  viewer.folderPrefix = viewer.filePath.substr(0, viewer.filePath.size() - name.size());
  if (characterCount(name) < letters || !isFileName(viewer.filePath, name)) {
    // The caption is that of another file: the path tried last was ignored. Paging goes on past it.
    viewer.folderPrefix = viewer.folderPath;
    const bool sameFolder = viewer.filePath.substr(0, folderLength(viewer.filePath)) == viewer.folderPath;
    name = sameFolder ? fileNameOf(viewer.filePath) : viewer.fileName;
  }

  viewer.folderFiles = viewer.platform.files->listFolder(viewer.folderPrefix.c_str());
  std::erase_if(viewer.folderFiles, [](const std::string &file) { return !supported(file); });
  if (viewer.display.orderByNumber) std::sort(viewer.folderFiles.begin(), viewer.folderFiles.end(), numberedBefore);
  if (viewer.folderFiles.size() > kMaxFiles) viewer.folderFiles.resize(kMaxFiles);
  viewer.folderFileCount = static_cast<int16_t>(viewer.folderFiles.size());
  const auto current = std::find(viewer.folderFiles.begin(), viewer.folderFiles.end(), name);
  const bool found = current != viewer.folderFiles.end();
  viewer.folderIndex = found ? static_cast<int16_t>(current - viewer.folderFiles.begin() + 1) : int16_t{1};
}

void openNextFile(ViewerState &viewer) {
  openStep(viewer, [](int index, int count) { return index < count ? index + 1 : 1; });
}

void openPreviousFile(ViewerState &viewer) {
  openStep(viewer, [](int index, int count) { return index > 1 ? index - 1 : count; });
}

void openFirstFile(ViewerState &viewer) {
  openStep(viewer, [](int, int) { return 1; });
}

void openLastFile(ViewerState &viewer) {
  openStep(viewer, [](int, int count) { return count; });
}
