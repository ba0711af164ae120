#include "video/video_mode.h"

#include "base/buffers.h"
#include "core/commands.h"
#include "core/dispatch.h"
#include "core/load_pipeline.h"
#include "core/display_geometry.h"
#include "video/eva_player.h"
#include "video/vid_player.h"

#include <algorithm>

namespace {

constexpr int32_t kEnlargement = 2;

// Frame 0 and everything around it. Run again after each run.
void setUpVideo(ViewerState &viewer) {
  if (viewer.evaPlayer.fileOpen == kTrue) openEva(viewer, openedPath(viewer));
  if (viewer.vidPlayer.fileOpen == kTrue && !openVid(viewer)) leaveVideoMode(viewer);
}

void carryOutRequests(ViewerState &viewer) {
  if (viewer.exitRequested) {
    menuExit_Click(viewer);
    return;
  }
  if (viewer.closeRequested) {
    viewer.closeRequested = false;
    menuClose_Click(viewer);
  }
  if (viewer.pathRequested.empty()) return;
  const std::string path = std::move(viewer.pathRequested);
  viewer.pathRequested.clear();
  openPath(viewer, path);
}

} // namespace

void openEvaVideo(ViewerState &viewer) {
  if (!openFileForReading(viewer)) return;
  if (!evaRateKnown(viewer)) {
    reportNotValid(viewer);
    return;
  }
  viewer.evaPlayer.fileOpen = kTrue;
  openEva(viewer, openedPath(viewer));
}

void openVidVideo(ViewerState &viewer) {
  if (!openFileForReading(viewer)) return;
  viewer.vidPlayer.fileOpen = kTrue;
  openVid(viewer);
}

void Image1_Click(ViewerState &viewer) {
  const bool eva = viewer.evaPlayer.fileOpen == kTrue;
  const bool vid = viewer.vidPlayer.fileOpen == kTrue;
  const int32_t frames = vid ? viewer.vidPlayer.frameCount : viewer.evaPlayer.frameCount;
  if ((!eva && !vid) || frames <= 0 || viewer.loadUnderWay || viewer.runUnderWay) return;
  viewer.runUnderWay = true;
  if (vid) {
    viewer.vidPlayer.playing = kTrue;
    playVid(viewer);
  } else {
    viewer.evaPlayer.playing = kTrue;
    playEva(viewer);
  }
  setUpVideo(viewer);
  viewer.runUnderWay = false;
  carryOutRequests(viewer);
}

void Image2_Click(ViewerState &viewer) {
  if (!videoPlaying(viewer)) return;
  stopPlayback(viewer);
  setUpVideo(viewer);
}

void HScroll1_Change(ViewerState &viewer, int32_t value) {
  if (!videoOpen(viewer) || viewer.loadUnderWay || viewer.runUnderWay) return;
  ScrollBar &bar = viewer.window.HScroll1;
  value = std::clamp(value, 0, std::max(0, bar.maximum));
  if (value == bar.value) return;
  bar.value = value;
  viewer.vidPlayer.fileOpen == kTrue ? showVidFrame(viewer) : showEvaFrame(viewer);
}

void togglePlayback(ViewerState &viewer) { videoPlaying(viewer) ? Image2_Click(viewer) : Image1_Click(viewer); }

void showNextFrame(ViewerState &viewer) { HScroll1_Change(viewer, viewer.window.HScroll1.value + 1); }

void showFrameBefore(ViewerState &viewer) { HScroll1_Change(viewer, viewer.window.HScroll1.value - 1); }

bool enterVideoMode(ViewerState &viewer, const VideoFormat &format) {
  WindowModel &window = viewer.window;
  const int32_t width = std::max(0, format.width);
  // Frames hold no more than 65535 pixels; lines far beyond them need no memory.
  const int32_t mostLines = width > 0 ? static_cast<int32_t>(kMaxPixels / width) : 0;
  const int32_t height = std::clamp(format.height, 0, mostLines);
  const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
  if (!provideRoom(viewer.frameBits, pixels)) {
    reportNoMemory(viewer);
    return false;
  }
  viewer.bitsPerPixel = format.bitsPerPixel;
  viewer.colourMode = format.colourMode;
  viewer.colourCount = format.colourCount;
  viewer.imageWidth = width;
  viewer.imageHeight = std::max(0, format.height);
  viewer.hasPalette = kFalse; // frames are drawn through tables of the player
  viewer.isPacked = kFalse;
  showPictureInfo(viewer);

  window.Image1.visible = window.Image2.visible = window.HScroll1.visible = true;
  for (MenuItem *item : {&window.menuViewPal, &window.menuLoadPal, &window.menuSavePal, &window.menuRestPal,
                         &window.menuZoom, &window.menuDoubleHeight}) {
    item->enabled = false;
  }
  window.menuViewPal.checked = false;
  for (Swatch &swatch : window.Label5) swatch.visible = false;
  for (MenuItem *item : {&window.menuView, &window.menuClose, &window.menuSaveBMP, &window.menuCopyClipboard}) {
    item->enabled = true;
  }

  viewer.frameWidth = width;
  viewer.frameHeight = height;
  viewer.frameBits.assign(pixels, 0);
  viewer.picturePath = openedPath(viewer);
  viewer.pictureShown = kTrue;
  window.stretch = {.sourceWidth = viewer.frameWidth,
                    .sourceHeight = viewer.frameHeight,
                    .targetWidth = kEnlargement * viewer.frameWidth,
                    .targetHeight = kEnlargement * viewer.frameHeight};
  window.mainViewWidth = window.stretch.targetWidth + kFrameAround;
  window.mainViewHeight = window.stretch.targetHeight + kFrameAround;
  return true;
}

void leaveVideoMode(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  window.Image1.visible = window.Image2.visible = window.HScroll1.visible = false;
  window.menuZoom.enabled = window.menuDoubleHeight.enabled = true;
}

void drawVideoFrame(ViewerState &viewer, std::span<const uint32_t> pixels, const FrameHeader &header) {
  const auto width = static_cast<size_t>(viewer.frameWidth);
  const auto height = static_cast<size_t>(viewer.frameHeight);
  viewer.frameBits.resize(width * height); // all frames of a file reach the same pixels; the others stay black
  const auto rowPixels = static_cast<size_t>(std::max(0, header.width));
  const size_t rows = std::min(height, static_cast<size_t>(std::max(0, -header.height)));
  const size_t columns = std::min(width, rowPixels);
  for (size_t y = 0; y < rows && y * rowPixels < pixels.size(); ++y) {
    const size_t count = std::min(columns, pixels.size() - y * rowPixels);
    std::copy_n(pixels.data() + y * rowPixels, count, viewer.frameBits.data() + y * width);
  }
  ++viewer.window.pictureSerial;
  viewer.window.readout = {}; // of the frame before
  viewer.platform.presentPicture(viewer.platform.context, viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
}
