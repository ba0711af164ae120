#include "video/playback.h"

#include "state/platform_calls.h"
#include "video/sound_track.h"
#include "video/video_mode.h"

#include <algorithm>
#include <cmath>

namespace {

// First frame to play: the bar's; at the last frame the bar is reset to 0.
int32_t firstFrame(ScrollBar &bar, int32_t frameCount) {
  if (bar.value >= frameCount - 1) bar.value = 0;
  return bar.value;
}

// The commands that would load or draw a picture, and the scroll bar, cannot be used during a run.
void enableDuringRun(WindowModel &window, bool enabled) {
  for (MenuItem *item : {&window.menuView, &window.menuOpen, &window.menuClose, &window.menuPreferences}) {
    item->enabled = enabled;
  }
  window.HScroll1.enabled = enabled;
}

// Milliseconds of the run, and those at which its current frame is due. The tick count wraps after 49.7 days; the
// difference does not. An event pass may move the start.
uint32_t elapsed(const ViewerState &viewer) { return tickCount(viewer) - viewer.run.startTicks; }

double due(const ViewerState &viewer) {
  const VideoRun &run = viewer.run;
  return (run.currentFrame - run.startFrame) * 1000.0 / playbackRate(viewer);
}

// Waits until the current frame is due, with event passes. Returns false at once if the end of the run is requested.
bool waitForFrame(const ViewerState &viewer) {
  const double end = due(viewer);
  if (elapsed(viewer) > end) { // a late frame does not wait, but Stop is handled
    runPendingEvents(viewer);
    return videoPlaying(viewer);
  }
  while (elapsed(viewer) < end) {
    runPendingEvents(viewer);
    if (!videoPlaying(viewer)) return false;
    const uint32_t now = elapsed(viewer);
    if (now >= end) break;
    waitForEvents(viewer, static_cast<uint32_t>(std::ceil(end - now)));
  }
  return true;
}

// Shows the frame number in scroll bar and status line.
void showFrameNumber(WindowModel &window, int32_t frame) {
  constexpr int32_t kBarBits = 0xFFFF; // low 16 bits: intended, the control holds no more
  window.HScroll1.value = frame & kBarBits;
  window.Label4 = frameText(frame);
}

// The current frame was due: shows its number and plays the next one. Returns false if it was the last.
bool playNextFrame(ViewerState &viewer) {
  VideoRun &run = viewer.run;
  showFrameNumber(viewer.window, run.currentFrame);
  if (++run.currentFrame >= viewer.player->frames(viewer)) return false;
  viewer.player->play(viewer);
  return true;
}

} // namespace

std::string frameText(int32_t frame) { return "Frame:" + std::string(frame < 0 ? "" : " ") + std::to_string(frame); }

int32_t playbackRate(const ViewerState &viewer) { return std::max(1, viewer.player->rate(viewer)); }

void setUpVideo(ViewerState &viewer) {
  if (viewer.player != nullptr && viewer.player->open(viewer)) return;
  viewer.player = nullptr;
  leaveVideoMode(viewer);
}

void beginRun(ViewerState &viewer) {
  const VideoPlayer &player = *viewer.player;
  VideoRun &run = viewer.run;
  run.startFrame = run.currentFrame = firstFrame(viewer.window.HScroll1, player.frames(viewer));
  enableDuringRun(viewer.window, false);
  run.hasSound = player.hasSound;
  viewer.evaPlayer.soundPending = toFlag(run.hasSound);
  run.startTicks = tickCount(viewer);
  run.pauses = 0;
  player.play(viewer);
}

void waitForRun(ViewerState &viewer) {
  while (waitForFrame(viewer) && playNextFrame(viewer)) {
  }
}

bool stepRun(ViewerState &viewer) {
  if (!videoPlaying(viewer)) return false;
  return viewer.run.pauses > 0 || elapsed(viewer) < due(viewer) || playNextFrame(viewer);
}

void endRun(ViewerState &viewer) {
  if (viewer.run.hasSound) stopSound(viewer);
  if (videoPlaying(viewer)) requestAfterwards(viewer, {Request::kStop});
  enableDuringRun(viewer.window, true);
}

void pausePlayback(ViewerState &viewer) {
  VideoRun &run = viewer.run;
  if (!videoPlaying(viewer) || run.pauses++ > 0) return;
  run.heldTicks = tickCount(viewer);
  viewer.platform.holdSound(viewer.platform.context);
}

void resumePlayback(ViewerState &viewer) {
  VideoRun &run = viewer.run;
  if (run.pauses == 0 || --run.pauses > 0 || !videoPlaying(viewer)) return;
  run.startTicks += tickCount(viewer) - run.heldTicks;
  viewer.platform.resumeSound(viewer.platform.context);
}
