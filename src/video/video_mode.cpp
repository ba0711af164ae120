#include "video/video_mode.h"

#include "base/buffers.h"
#include "state/labels.h"
#include "state/platform_calls.h"
#include "state/video_memory.h"

#include <algorithm>

namespace {

constexpr int32_t kEnlargement = 2;

void describeFrames(ViewerState &viewer, const PictureSettings &format) {
  describePicture(viewer, format);
  viewer.imageWidth = std::max(0, format.imageWidth);
  viewer.imageHeight = std::max(0, format.imageHeight);
  viewer.hasPalette = kFalse; // the player has its own colour tables
  viewer.isPacked = kFalse;
}

void showVideoControls(WindowModel &window) {
  window.Image1.visible = window.Image2.visible = window.HScroll1.visible = true;
  for (MenuItem *item : {&window.menuViewPal, &window.menuLoadPal, &window.menuSavePal, &window.menuRestPal,
                         &window.menuZoom, &window.menuDoubleHeight}) {
    item->enabled = false;
  }
  hideSwatches(window);
  enablePictureCommands(window);
}

} // namespace

bool enterVideoMode(ViewerState &viewer, const PictureSettings &format) {
  WindowModel &window = viewer.window;
  const int32_t width = std::max(0, format.imageWidth);
  // A frame has at most 65535 pixels; lines far beyond them need no memory.
  const int32_t maxLines = width > 0 ? static_cast<int32_t>(kMaxPixels / width) : 0;
  const int32_t height = std::clamp(format.imageHeight, 0, maxLines);
  const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
  if (!reserve(viewer.frameBits, pixels)) return reportNoMemory(viewer);
  describeFrames(viewer, format);
  showPictureInfo(viewer);
  showVideoControls(window);

  viewer.frameWidth = width;
  viewer.frameHeight = height;
  viewer.frameBits.assign(pixels, 0);
  takePicture(viewer);
  window.stretch = {.sourceWidth = width,
                    .sourceHeight = height,
                    .targetWidth = kEnlargement * width,
                    .targetHeight = kEnlargement * height};
  window.mainViewWidth = window.stretch.targetWidth + kViewBorders;
  window.mainViewHeight = window.stretch.targetHeight + kViewBorders;
  ++window.fittings;
  return true;
}

void leaveVideoMode(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  window.Image1.visible = window.Image2.visible = window.HScroll1.visible = false;
  window.menuZoom.enabled = window.menuDoubleHeight.enabled = true;
}

void drawVideoFrame(ViewerState &viewer, const PixelView &frame) {
  const auto width = static_cast<size_t>(viewer.frameWidth);
  const auto height = static_cast<size_t>(viewer.frameHeight);
  viewer.frameBits.resize(width * height); // each frame of a file writes the same pixels; the others stay black
  const auto rowPixels = static_cast<size_t>(std::max(0, frame.width));
  const size_t rows = std::min(height, static_cast<size_t>(std::max(0, frame.height)));
  const size_t columns = std::min(width, rowPixels);
  for (size_t y = 0; y < rows && y * rowPixels < frame.words.size(); ++y) {
    const size_t count = std::min(columns, frame.words.size() - y * rowPixels);
    std::copy_n(frame.words.data() + y * rowPixels, count, viewer.frameBits.data() + y * width);
  }
  viewer.run.shownFrame = viewer.run.currentFrame;
  ++viewer.window.pictureSerial;
  // The old one is of the last frame. A command's text stays during a run.
  if (!videoPlaying(viewer) || !viewer.window.readout.ofCommand) viewer.window.readout = {};
  presentPicture(viewer);
}
