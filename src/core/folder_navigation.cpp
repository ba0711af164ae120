#include "core/folder_navigation.h"

#include "core/commands.h"
#include "core/dispatch.h"
#include "core/text.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace {

// A file is listed when its last four letters occur anywhere in here, so that "5 .G" is listed too: intended.
constexpr std::string_view kSupportedExtensions =
    ".GE5 .GE8 .DAT .CMP .PCT .STP .PIC .SC2 .SR2 .SC4 .SR4 .SC5 .SR5 .SC6 .SR6 .SC7 .SR7 .SC8 .SR8 .SCA .SRA .S10 "
    ".SCB .SRB .S11 .SCC .SRC .S12 .GL5 .GL6 .GL7 .GL8 .GLA .GLB .GLC .HAM .G9B .SCR .TGS .SGX .VID .EVA .EV8";
constexpr size_t kExtensionLength = 4;

// As many files as a 16-bit number counts.
constexpr size_t kMostFiles = std::numeric_limits<int16_t>::max();

bool supported(const std::string &name) {
  return kSupportedExtensions.find(upperCased(lastCharacters(name, kExtensionLength))) != std::string_view::npos;
}

using Step = int (*)(int index, int count);

void openStep(ViewerState &viewer, Step step) {
  if (viewer.filePath.empty() || videoPlaying(viewer) || viewer.loadUnderWay) return;
  rebuildFolderList(viewer);
  if (viewer.folderFileCount == 0) return;
  viewer.folderIndex = static_cast<int16_t>(step(viewer.folderIndex, viewer.folderFileCount));
  openPath(viewer, viewer.folderPrefix + viewer.folderFiles[static_cast<size_t>(viewer.folderIndex) - 1]);
}

} // namespace

void rebuildFolderList(ViewerState &viewer) {
  const std::string &caption = viewer.window.caption;
  if (caption == kEmptyCaption) return;
  viewer.folderFiles.clear();
  viewer.folderFileCount = 0;
  viewer.folderIndex = 1;
  const std::string_view shownName = std::string_view(caption).substr(kCaptionStart.size());
  // After a file of an unknown kind was named, the caption still shows the one before.
  if (!viewer.filePath.ends_with(shownName)) return;
  viewer.folderPrefix = viewer.filePath.substr(0, viewer.filePath.size() - shownName.size());

  viewer.folderFiles = viewer.platform.files->listFolder(viewer.folderPrefix.c_str());
  std::erase_if(viewer.folderFiles, [](const std::string &name) { return !supported(name); });
  if (viewer.folderFiles.size() > kMostFiles) viewer.folderFiles.resize(kMostFiles);
  viewer.folderFileCount = static_cast<int16_t>(viewer.folderFiles.size());
  const auto current = std::find(viewer.folderFiles.begin(), viewer.folderFiles.end(), shownName);
  if (current != viewer.folderFiles.end()) {
    viewer.folderIndex = static_cast<int16_t>(current - viewer.folderFiles.begin() + 1);
  }
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
