#include "core/video_commands.h"

#include "core/commands.h"
#include "video/playback.h"

#include <algorithm>

namespace {

// Frame 0 is shown again.
void leaveRun(ViewerState &viewer) {
  endRun(viewer);
  setUpVideo(viewer);
  endActivity(viewer);
}

} // namespace

void Image1_Click(ViewerState &viewer) {
  if (viewer.player == nullptr || viewer.activity != Activity::kIdle || viewer.player->frames(viewer) <= 0) return;
  viewer.activity = Activity::kPlaying;
  beginRun(viewer);
  if (viewer.platform.stepsVideos) return;
  waitForRun(viewer);
  leaveRun(viewer);
}

void stepVideo(ViewerState &viewer) {
  if (viewer.activity == Activity::kPlaying && !stepRun(viewer)) leaveRun(viewer);
}

void Image2_Click(ViewerState &viewer) {
  if (!videoPlaying(viewer)) return;
  requestAfterwards(viewer, {Request::kStop});
  setUpVideo(viewer);
}

void HScroll1_Change(ViewerState &viewer, int32_t value) {
  if (viewer.player == nullptr || viewer.activity != Activity::kIdle) return;
  ScrollBar &bar = viewer.window.HScroll1;
  value = std::clamp(value, 0, std::max(0, bar.maximum));
  if (value == bar.value) return;
  bar.value = value;
  viewer.player->show(viewer);
}

void togglePlayback(ViewerState &viewer) { videoPlaying(viewer) ? Image2_Click(viewer) : Image1_Click(viewer); }

void showNextFrame(ViewerState &viewer) { HScroll1_Change(viewer, viewer.window.HScroll1.value + 1); }

void showFrameBefore(ViewerState &viewer) { HScroll1_Change(viewer, viewer.window.HScroll1.value - 1); }
