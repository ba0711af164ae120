#include "core/image_info.h"

#include "base/text.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"
#include "video/sound_track.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

std::string line(const char *name, const std::string &value) { return std::string(name) + ":\t" + value + "\n"; }

std::string sizeText(int32_t width, int32_t height) {
  return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

// The flag may be left from the picture before.
std::string paletteText(const ViewerState &viewer) {
  constexpr uint8_t kMostEntries = 64;
  if (viewer.hasPalette != kTrue || viewer.colourCount == 0 || viewer.colourCount > kMostEntries) return "no";
  return "yes, " + std::to_string(viewer.colourCount) + " colors";
}

std::string videoLines(const ViewerState &viewer) {
  const bool eva = viewer.evaPlayer.fileOpen == kTrue;
  const int32_t frames = eva ? viewer.evaPlayer.frameCount : viewer.vidPlayer.frameCount;
  const int rate = eva ? viewer.evaPlayer.framesPerSecond : viewer.vidPlayer.framesPerSecond;
  std::array<char, 32> seconds{};
  (void)std::snprintf(seconds.data(), seconds.size(), "%.1f seconds", static_cast<double>(frames) / std::max(1, rate));
  const auto samplesPerFrame = static_cast<int64_t>(soundFormat(viewer).samplesPerFrame);
  const std::string sound = eva ? grouped(samplesPerFrame * rate) + " Hz, 8 bits, mono" : "none";
  return line("Frames", grouped(frames)) + line("Rate", std::to_string(rate) + " frames a second") +
         line("Length", seconds.data()) + line("Sound", sound);
}

} // namespace

std::string imageInfo(const ViewerState &viewer) {
  const bool video = videoOpen(viewer);
  const bool refused = viewer.picturePath != openedPath(viewer);
  const char *storage = video || refused ? "" : viewer.isPacked == kTrue ? " (compressed)" : " (raw bitmap)";
  std::string text = line("File name", viewer.fileName) + line("Folder", viewer.folderPath) +
                     line("Size on disk", grouped(inputFileLength(viewer.inputFile)) + " bytes") +
                     line("Type", viewer.typeDescription + storage);
  if (refused) { // its header may have been taken over in part
    return text + line("Picture shown", "still that of " + viewer.picturePath) +
           line("Size", sizeText(viewer.frameWidth, viewer.frameHeight));
  }
  text += line("Size", sizeText(viewer.imageWidth, viewer.imageHeight)) +
          line("Depth", std::to_string(viewer.bitsPerPixel) + " bits per pixel") +
          line("Colors", viewer.window.Label3) + line("Palette", paletteText(viewer));
  if (video) text += videoLines(viewer);
  if (viewer.fileExtension == ".HAM") text += hamDetails(viewer);
  if (viewer.fileExtension == ".G9B") text += g9bDetails(viewer);
  return text;
}

void menuImageInfo_Click(ViewerState &viewer) {
  viewer.platform.showText(viewer.platform.context, "Image Info", imageInfo(viewer));
}
