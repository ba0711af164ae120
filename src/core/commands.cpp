#include "core/commands.h"

#include "core/bitmap_export.h"
#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "core/preferences.h"
#include "base/text.h"
#include "core/display_geometry.h"
#include "video/sound_track.h"

#include <span>

std::optional<std::string> pathFromCommandLine(std::string_view commandLine) {
  constexpr std::string_view kSeveralQuotedPaths = "\" \"";
  constexpr size_t kFirstForeignColon = 6; // 1-based; a colon from here on is that of a second drive letter

  if (commandLine.empty()) return std::nullopt;
  if (commandLine.find(kSeveralQuotedPaths) != std::string_view::npos) return std::nullopt;
  const size_t colon = commandLine.rfind(':');
  if (colon != std::string_view::npos && characterCount(commandLine.substr(0, colon)) + 1 >= kFirstForeignColon) {
    return std::nullopt;
  }
  if (commandLine.front() != '"') return std::string(commandLine);
  if (commandLine.size() < 2) return std::string();
  return std::string(commandLine.substr(1, commandLine.size() - 2));
}

void startViewer(ViewerState &viewer, std::string_view commandLine) {
  viewer.window.mainViewWidth = kEmptyViewWidth;
  viewer.window.mainViewHeight = kEmptyViewHeight;
  viewer.zoomMode = 1;
  viewer.window.menuZoom.checked = true;
  loadPreferences(viewer);
  ApplyDisplayGeometry(viewer);
  resetViewer(viewer);
  if (const auto path = pathFromCommandLine(commandLine)) openPath(viewer, *path);
}

void openPath(ViewerState &viewer, const std::string &path) {
  if (viewer.loadUnderWay) return;
  if (viewer.runUnderWay) {
    if (characterCount(path) < kShortestPath) return;
    stopPlayback(viewer);
    viewer.pathRequested = path;
    return;
  }
  viewer.loadUnderWay = true;
  viewer.filePath = path;
  openCurrentPath(viewer);
  endLoad(viewer);
}

void endLoad(ViewerState &viewer) {
  viewer.loadUnderWay = false;
  if (viewer.exitRequested) menuExit_Click(viewer);
}

void menuReload_Click(ViewerState &viewer) { openPath(viewer, openedPath(viewer)); }

void menuClose_Click(ViewerState &viewer) {
  if (viewer.loadUnderWay) return;
  if (viewer.runUnderWay) {
    stopPlayback(viewer);
    viewer.closeRequested = true;
    viewer.pathRequested.clear();
    return;
  }
  resetViewer(viewer);
  showPictureInfo(viewer);
}

void menuZoom_Click(ViewerState &viewer) {
  viewer.zoomMode = viewer.zoomMode == 1 ? 0 : 1;
  viewer.window.menuZoom.checked = viewer.zoomMode == 1;
  ApplyDisplayGeometry(viewer);
}

void menuDoubleHeight_Click(ViewerState &viewer) {
  bool &checked = viewer.window.menuDoubleHeight.checked;
  checked = !checked;
  ApplyDisplayGeometry(viewer);
}

void menuCopyClipboard_Click(ViewerState &viewer) {
  const auto file = encodeBitmap(viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
  const auto bitmapV5 = encodeBitmapV5(viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
  const bool encoded = !file.empty() && !bitmapV5.empty();
  const auto bitmap = std::span(file).subspan(encoded ? kBitmapFileHeaderBytes : 0);
  if (encoded && viewer.platform.copyToClipboard(viewer.platform.context, bitmap, bitmapV5)) return;
  viewer.platform.showMessage(viewer.platform.context, "Korilan",
                              "Could not copy: the clipboard is in use, or memory is lacking.", MessageIcon::kWarning);
}

void menuExit_Click(ViewerState &viewer) {
  viewer.exitRequested = viewer.loadUnderWay || viewer.runUnderWay;
  stopPlayback(viewer);
  if (viewer.exitRequested) return;
  stopSound(viewer);
  closeInputFile(viewer.inputFile);
  viewer.platform.exitProgram(viewer.platform.context);
}
