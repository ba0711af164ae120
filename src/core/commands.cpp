#include "core/commands.h"

#include "base/disk_files.h"
#include "base/text.h"
#include "core/display_geometry.h"
#include "core/display_settings.h"
#include "core/opening.h"
#include "core/preferences.h"
#include "core/recent.h"
#include "core/scaling.h"
#include "state/labels.h"
#include "state/platform_calls.h"
#include "video/sound_track.h"

#include <utility>

namespace {

// During an activity, stores the command as a request or drops it, and returns true.
bool deferred(ViewerState &viewer, const Request &request) {
  if (viewer.activity == Activity::kIdle) return false;
  const bool endsLoad = request.kind == Request::kExit;
  if (viewer.activity == Activity::kPlaying || endsLoad) requestAfterwards(viewer, request);
  return true;
}

} // namespace

std::optional<std::string> pathFromCommandLine(std::string_view commandLine) {
  constexpr std::string_view kSeveralQuotedPaths = "\" \"";
  constexpr size_t kFirstForeignColon = 6; // 1-based; a colon from here on follows a second drive letter

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
  viewer.window.menuZoom.checked = true;
  loadPreferences(viewer);
  loadDisplaySettings(viewer);
  loadScale(viewer);
  loadRecentFiles(viewer);
  resetViewer(viewer);
  if (const auto path = pathFromCommandLine(commandLine)) openPath(viewer, *path);
}

void endActivity(ViewerState &viewer) {
  viewer.activity = Activity::kIdle;
  const Request request = std::exchange(viewer.request, {});
  switch (request.kind) {
  case Request::kExit: menuExit_Click(viewer); break;
  case Request::kClose: menuClose_Click(viewer); break;
  case Request::kOpen: openPath(viewer, request.path); break;
  default: break;
  }
}

void openPath(ViewerState &viewer, const std::string &path) {
  if (viewer.activity == Activity::kPlaying && characterCount(path) < kMinPathLength) return;
  if (deferred(viewer, {Request::kOpen, path})) return;
  viewer.activity = Activity::kLoading;
  viewer.filePath = path;
  openCurrentPath(viewer);
  noteRecentFile(viewer);
  endActivity(viewer);
}

void menuReload_Click(ViewerState &viewer) { openPath(viewer, openedPath(viewer)); }

void menuClose_Click(ViewerState &viewer) {
  if (deferred(viewer, {Request::kClose})) return;
  resetViewer(viewer);
  showPictureInfo(viewer);
}

void menuShowInFolder_Click(ViewerState &viewer) {
  const std::string path = viewer.platform.files->fullPath(systemFileOf(openedPath(viewer)).c_str());
  if (viewer.platform.showInFolder(viewer.platform.context, path)) return;
  showMessage(viewer, "Korilan", "Could not show " + path, MessageIcon::kWarning);
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

void menuFullScreen_Click(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  window.fullScreen = !window.fullScreen;
  window.menuFullScreen.checked = window.fullScreen;
}

void menuExit_Click(ViewerState &viewer) {
  if (deferred(viewer, {Request::kExit})) return;
  stopSound(viewer);
  closeInputFile(viewer.inputFile);
  viewer.platform.exitProgram(viewer.platform.context);
}
