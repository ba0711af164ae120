#include "core/opening.h"

#include "base/disk_files.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/display_geometry.h"
#include "core/file_kinds.h"
#include "core/file_palettes.h"
#include "core/following.h"
#include "core/picture_list.h"
#include "core/rendering.h"
#include "state/labels.h"
#include "state/video_memory.h"
#include "video/playback.h"
#include "video/video_mode.h"

namespace {

// Also tells the players that their file is closed.
void closeAllFiles(ViewerState &viewer) {
  closeInputFile(viewer.inputFile);
  viewer.player = nullptr;
  leaveVideoMode(viewer);
  viewer.paletteFilePos = 0;
  viewer.vramPos = 0;
}

// First step: stores names and caption, opens the file. Returns false, with the error shown, on failure.
bool openFileForReading(ViewerState &viewer) {
  viewer.fileName = fileNameOf(viewer.filePath);
  viewer.folderPath = viewer.filePath.substr(0, folderLength(viewer.filePath));
  viewer.window.caption = std::string(kCaptionStart) + viewer.fileName;
  viewer.window.menuReload.enabled = viewer.window.menuShowInFolder.enabled = true;
  viewer.fileLoaded = kTrue;
  viewer.loadError.clear();
  closeAllFiles(viewer);
  const bool opened = openInputFile(viewer.inputFile, *viewer.platform.files, viewer.filePath);
  startFollowing(viewer);
  return opened || reportNotValid(viewer);
}

// Of a disk image: goes on with its first picture, as if that were the path. Returns false, with the error shown, if
// there is none.
bool enterDisk(ViewerState &viewer) {
  const std::string folder = asFolder(viewer.filePath);
  if (const std::vector<std::string> pictures = listPictures(viewer, folder); !pictures.empty()) {
    viewer.filePath = folder + pictures.front();
    viewer.fileExtension = upperCased(lastCharacters(viewer.filePath, kExtensionLength));
    return true;
  }
  takeKind(viewer, kNoKind);
  if (!openFileForReading(viewer)) return false;
  closeInputFile(viewer.inputFile);
  return listDiskImage(viewer.filePath) ? reportError(viewer, "*** Error: No pictures on this disk.")
                                        : reportNotValid(viewer);
}

// Last step: shows the loaded picture or video.
void showLoaded(ViewerState &viewer) {
  viewer.player = viewer.kind->traits.player;
  if (viewer.player != nullptr) {
    setUpVideo(viewer);
  } else {
    takePaletteOfSameName(viewer);
    renderAndShow(viewer);
  }
}

} // namespace

void openCurrentPath(ViewerState &viewer) {
  if (characterCount(viewer.filePath) < kMinPathLength) return;
  viewer.window.menuDoubleHeight.checked = false;
  viewer.fileExtension = upperCased(lastCharacters(viewer.filePath, kExtensionLength));
  if (isDiskImage(viewer.filePath) && !enterDisk(viewer)) return;
  const FileKind *kind = findFileKind(viewer.fileExtension);
  if (kind == nullptr) return;
  takeKind(viewer, *kind);
  if (openFileForReading(viewer) && kind->load(viewer)) showLoaded(viewer);
  // While a file is open the system may refuse to have it replaced. The frames of a video are read as they are shown.
  if (viewer.player == nullptr) closeInputFile(viewer.inputFile);
}

void resetViewer(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  closeAllFiles(viewer);
  hideSwatches(window);
  window.caption = kEmptyCaption;
  viewer.fileLoaded = kFalse;
  for (MenuItem *item : {&window.menuView, &window.menuViewPal, &window.menuSavePal, &window.menuLoadPal,
                         &window.menuRestPal, &window.menuReload, &window.menuShowInFolder, &window.menuClose,
                         &window.menuSaveBMP, &window.menuSavePNG, &window.menuCopyClipboard}) {
    item->enabled = false;
  }
  window.menuDoubleHeight.checked = false;
  clearMemory(viewer);
  viewer.pictureShown = kFalse;
  window.mainViewWidth = kEmptyViewWidth;
  window.mainViewHeight = kEmptyViewHeight;
  window.stretch = {};
  window.readout = {};
  ++window.pictureSerial;
  ++window.fittings;
}
