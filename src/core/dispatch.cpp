#include "core/dispatch.h"

#include "core/file_kinds.h"
#include "core/load_pipeline.h"
#include "base/text.h"
#include "core/display_geometry.h"
#include "video/video_mode.h"

namespace {

// Also ends what the players know of their file: it is no longer the open one.
void closeAllFiles(ViewerState &viewer) {
  closeInputFile(viewer.inputFile);
  viewer.evaPlayer.fileOpen = kFalse;
  viewer.vidPlayer.fileOpen = kFalse;
  leaveVideoMode(viewer);
}

} // namespace

void openCurrentPath(ViewerState &viewer) {
  if (characterCount(viewer.filePath) < kShortestPath) return;
  if (videoPlaying(viewer)) stopPlayback(viewer);
  viewer.window.menuDoubleHeight.checked = false;
  viewer.fileExtension = upperCased(lastCharacters(viewer.filePath, kExtensionLength));
  const FileKind *kind = findFileKind(viewer.fileExtension);
  if (kind == nullptr) return;
  viewer.typeDescription = kind->typeDescription;
  kind->load(viewer);
}

bool openFileForReading(ViewerState &viewer) {
  const size_t separator = viewer.filePath.find_last_of(kFolderSeparators);
  const size_t folderLength = separator == std::string::npos ? 0 : separator + 1;
  viewer.fileName = viewer.filePath.substr(folderLength);
  viewer.folderPath = viewer.filePath.substr(0, folderLength);
  viewer.window.caption = std::string(kCaptionStart) + viewer.fileName;
  viewer.window.menuReload.enabled = true;
  viewer.fileLoaded = kTrue;
  closeAllFiles(viewer);
  viewer.paletteFilePos = 0;
  viewer.vramPos = 0;
  if (openInputFile(viewer.inputFile, *viewer.platform.files, viewer.filePath)) return true;
  reportNotValid(viewer);
  return false;
}

void reportNotValid(ViewerState &viewer) {
  viewer.window.Label4 = "*** Error: Not a valid " + viewer.fileExtension + " file.";
}

void reportNoMemory(ViewerState &viewer) { viewer.window.Label4 = "*** Error: Not enough memory."; }

void resetViewer(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  closeAllFiles(viewer);
  viewer.paletteFilePos = 0;
  viewer.vramPos = 0;
  if (videoPlaying(viewer)) stopPlayback(viewer);
  window.menuViewPal = {.enabled = false, .checked = false};
  for (Swatch &swatch : window.Label5) swatch.visible = false;
  window.caption = kEmptyCaption;
  viewer.fileLoaded = kFalse;
  for (MenuItem *item : {&window.menuView, &window.menuSavePal, &window.menuLoadPal, &window.menuRestPal,
                         &window.menuReload, &window.menuClose, &window.menuSaveBMP, &window.menuCopyClipboard}) {
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
  ApplyDisplayGeometry(viewer);
}
