#include "video/playback.h"

#include "video/sound_track.h"

#include <algorithm>
#include <cmath>

std::string frameText(int32_t frame) { return "Frame:" + std::string(frame < 0 ? "" : " ") + std::to_string(frame); }

int32_t runStart(ScrollBar &bar, int32_t frameCount) {
  if (bar.value >= frameCount - 1) bar.value = 0;
  return bar.value;
}

void enableDuringRun(ViewerState &viewer, bool enabled) {
  WindowModel &window = viewer.window;
  for (MenuItem *item : {&window.menuView, &window.menuOpen, &window.menuClose, &window.menuPreferences}) {
    item->enabled = enabled;
  }
}

bool waitForFrame(ViewerState &viewer, const uint32_t &startTicks, int32_t frame, int framesPerSecond,
                  const Flag16 &playing) {
  const PlatformOps &platform = viewer.platform;
  const double due = frame * 1000.0 / std::max(1, framesPerSecond);
  // The tick count wraps after 49.7 days; the difference does not.
  uint32_t elapsed = platform.tickCount(platform.context) - startTicks;
  if (elapsed > due) { // a late frame does not wait, but Stop is still heard
    platform.runPendingEvents(platform.context);
    return playing == kTrue;
  }
  while (elapsed < due) {
    platform.runPendingEvents(platform.context);
    if (playing != kTrue) return false;
    elapsed = platform.tickCount(platform.context) - startTicks;
    if (elapsed >= due) break;
    platform.waitForEvents(platform.context, static_cast<uint32_t>(std::ceil(due - elapsed)));
    elapsed = platform.tickCount(platform.context) - startTicks;
  }
  return true;
}

void holdRun(ViewerState &viewer) {
  if (!videoPlaying(viewer)) return;
  viewer.heldTicks = viewer.platform.tickCount(viewer.platform.context);
  if (viewer.evaPlayer.playing == kTrue) stopSound(viewer);
}

void resumeRun(ViewerState &viewer) {
  if (!videoPlaying(viewer)) return;
  const uint32_t held = viewer.platform.tickCount(viewer.platform.context) - viewer.heldTicks;
  viewer.evaPlayer.startTicks += held;
  viewer.vidPlayer.startTicks += held;
  if (viewer.evaPlayer.playing == kTrue && viewer.evaPlayer.soundPending != kTrue) startSound(viewer);
}

void showFrameNumber(ViewerState &viewer, int32_t frame) {
  constexpr int32_t kBarBits = 0xFFFF; // the bar takes the 16 low bits: intended
  viewer.window.HScroll1.value = frame & kBarBits;
  viewer.window.Label4 = frameText(frame);
}
