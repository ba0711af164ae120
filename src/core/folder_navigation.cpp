#include "core/folder_navigation.h"

#include "base/disk_files.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/commands.h"
#include "core/opening.h"
#include "core/picture_list.h"

#include <algorithm>
#include <string_view>

namespace {

// Whether `path` without `name` at its end is a folder. After a file of an unknown kind, the caption, and so the length
// of `name`, may be another file's.
bool isFileName(std::string_view path, std::string_view name) {
  path.remove_suffix(name.size());
  const bool folder = path.empty() || kFolderSeparators.find(path.back()) != std::string_view::npos;
  return folder && name.find_first_of(kFolderSeparators) == std::string_view::npos;
}

using Step = int (*)(int index, int count);

int stepForward(int index, int count) { return index < count ? index + 1 : 1; }
int stepBack(int index, int count) { return index > 1 ? index - 1 : count; }

bool mayStep(const ViewerState &viewer) {
  return !viewer.filePath.empty() && !videoPlaying(viewer) && viewer.activity != Activity::kLoading;
}

void openStep(ViewerState &viewer, Step step) {
  if (!mayStep(viewer)) return;
  rebuildFolderList(viewer);
  viewer.vidPlayer.headerReady = kFalse;
  if (viewer.folderFileCount == 0) return;
  viewer.folderIndex = static_cast<int16_t>(step(viewer.folderIndex, viewer.folderFileCount));
  openPath(viewer, viewer.folderPrefix + viewer.folderFiles[static_cast<size_t>(viewer.folderIndex) - 1]);
}

// The 1-based position of a name; 1 if it is not listed.
int positionOf(const std::vector<std::string> &names, std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  return found != names.end() ? static_cast<int>(found - names.begin()) + 1 : 1;
}

void openDiskStep(ViewerState &viewer, Step step) {
  const std::string image = systemFileOf(openedPath(viewer));
  if (!mayStep(viewer) || !isDiskImageName(image)) return;
  const std::string folder = image.substr(0, folderLength(image));
  const std::vector<std::string> images = listDiskImages(viewer, folder);
  if (images.empty()) return;
  const int position = step(positionOf(images, fileNameOf(image)), static_cast<int>(images.size()));
  openPath(viewer, folder + images[static_cast<size_t>(position) - 1]);
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

  // On a disk, paging goes through all of its folders.
  const std::string path = viewer.folderPrefix + std::string(name);
  if (const size_t diskEnd = diskLength(path); diskEnd != 0) {
    viewer.folderPrefix = path.substr(0, diskEnd);
    name = std::string_view(path).substr(diskEnd);
  }
  viewer.folderFiles = listPictures(viewer, viewer.folderPrefix);
  viewer.folderFileCount = static_cast<int16_t>(viewer.folderFiles.size());
  viewer.folderIndex = static_cast<int16_t>(positionOf(viewer.folderFiles, name));
}

void openNextFile(ViewerState &viewer) { openStep(viewer, stepForward); }
void openPreviousFile(ViewerState &viewer) { openStep(viewer, stepBack); }

void openFirstFile(ViewerState &viewer) {
  openStep(viewer, [](int, int) { return 1; });
}

void openLastFile(ViewerState &viewer) {
  openStep(viewer, [](int, int count) { return count; });
}

void openNextDisk(ViewerState &viewer) { openDiskStep(viewer, stepForward); }
void openPreviousDisk(ViewerState &viewer) { openDiskStep(viewer, stepBack); }
