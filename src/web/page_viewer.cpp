#include "web/page_viewer.h"

#include "core/commands.h"
#include "core/video_commands.h"
#include "video/sound_track.h"
#include "web/page_calls.h"

#include <new>

namespace {

uint32_t tickCount(void *) { return pageMilliseconds(); }

bool copyToClipboard(void *, const ClipboardPicture &picture) {
  std::vector<uint8_t> png;
  if (picture.png.bytes == 0 || !reserve(png, picture.png.bytes)) return false;
  png.resize(picture.png.bytes);
  picture.png.write(png);
  pageCopyPng(png.data(), png.size());
  return true;
}

// The page opens what the user chooses later.
std::string askOpenFileName(void *, const std::string &, const std::string &) {
  pageChooseFiles();
  return "";
}

void showText(void *, const std::string &title, const std::string &text) {
  pageShowText(title.data(), title.size(), text.data(), text.size());
}

void showMessage(void *context, const std::string &title, const std::string &text, MessageIcon) {
  showText(context, title, text);
}

void startSound(void *, std::span<const uint8_t>) {
  pageViewer().sounds = true;
  pageViewer().soundFrame = pageViewer().viewer.run.startFrame;
}

void stopPageSound(void *, std::span<const uint8_t>) {
  pageViewer().sounds = false;
  pageStopSound();
}

// The frames that were read since the last step.
void giveSamples(PageViewer &page) {
  ViewerState &viewer = page.viewer;
  if (!page.sounds) return;
  const SoundFormat &format = soundFormat(viewer);
  const uint32_t rate = samplesPerSecond(format);
  for (; page.soundFrame <= viewer.run.currentFrame; ++page.soundFrame) {
    const std::span<const uint8_t> samples = soundSlot(viewer, page.soundFrame);
    pagePlaySamples(samples.data(), samples.size(), rate);
  }
}

} // namespace

PageViewer &pageViewer() {
  static PageViewer page;
  return page;
}

void startPageViewer() {
  std::set_new_handler(pageOutOfMemory);
  PageViewer &page = pageViewer();
  ViewerState &viewer = page.viewer;
  attachHeadless(viewer, page.headless);
  page.headless.keepsLog = false;
  page.headless.answersYes = true; // a saved file replaces none: it goes to the downloads
  PlatformOps &platform = viewer.platform;
  platform.stepsVideos = true;
  platform.tickCount = tickCount;
  platform.copyToClipboard = copyToClipboard;
  platform.askOpenFileName = askOpenFileName;
  platform.showText = showText;
  platform.showMessage = showMessage;
  platform.startSound = startSound;
  platform.holdSound = [](void *) { pageHoldSound(); };
  platform.resumeSound = [](void *) { pageResumeSound(); };
  platform.stopSound = stopPageSound;
  startViewer(viewer, "");
  viewer.preferences.Check4 = kTrue; // letters without Ctrl, most of which a browser keeps for itself
}

void stepPageViewer() {
  stepVideo(pageViewer().viewer);
  giveSamples(pageViewer());
}
