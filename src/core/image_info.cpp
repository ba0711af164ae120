#include "core/image_info.h"

#include "base/text.h"
#include "state/labels.h"
#include "state/platform_calls.h"
#include "video/playback.h"
#include "video/sound_track.h"

#include <array>
#include <cstdio>

namespace {

std::string line(const char *name, const std::string &value) { return std::string(name) + ":\t" + value + "\n"; }

std::string sizeText(int32_t width, int32_t height) {
  return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

// hasPalette may be the last picture's.
std::string paletteText(const ViewerState &viewer) {
  constexpr uint8_t kMaxEntries = 64;
  if (viewer.hasPalette != kTrue || viewer.colourCount == 0 || viewer.colourCount > kMaxEntries) return "no";
  return "yes, " + std::to_string(viewer.colourCount) + " colors";
}

// Label3 keeps the text of the picture before if the description has none.
std::string colours(const ViewerState &viewer) {
  const char *text = colourText(viewer);
  return text != nullptr ? text : std::to_string(viewer.colourCount) + " colors";
}

std::string videoLines(const ViewerState &viewer) {
  const VideoPlayer &player = *viewer.player;
  const int32_t frames = player.frames(viewer);
  const int32_t rate = player.rate(viewer);
  std::array<char, 32> seconds{};
  (void)std::snprintf(seconds.data(), seconds.size(), "%.1f seconds",
                      static_cast<double>(frames) / playbackRate(viewer));
  const auto samplesPerFrame = static_cast<int64_t>(soundFormat(viewer).samplesPerFrame);
  const std::string sound =
      player.hasSound ? withThousandsSeparators(samplesPerFrame * rate) + " Hz, 8 bits, mono" : "none";
  return line("Frames", withThousandsSeparators(frames)) + line("Rate", std::to_string(rate) + " frames a second") +
         line("Length", seconds.data()) + line("Sound", sound);
}

// Of the current file, which is open.
std::string infoLines(const ViewerState &viewer) {
  const bool video = viewer.player != nullptr;
  const bool refused = viewer.picturePath != openedPath(viewer);
  const char *storage = video || refused ? "" : viewer.isPacked == kTrue ? " (compressed)" : " (raw bitmap)";
  std::string text = line("File name", viewer.fileName) + line("Folder", viewer.folderPath) +
                     line("Size on disk", withThousandsSeparators(inputFileLength(viewer.inputFile)) + " bytes") +
                     line("Type", viewer.typeDescription + storage);
  if (refused) { // part of its header may have been stored
    return text + line("Picture shown", "still that of " + viewer.picturePath) +
           line("Size", sizeText(viewer.frameWidth, viewer.frameHeight));
  }
  text += line("Size", sizeText(viewer.imageWidth, viewer.imageHeight)) +
          line("Depth", std::to_string(viewer.bitsPerPixel) + " bits per pixel") + line("Colors", colours(viewer)) +
          line("Palette", paletteText(viewer));
  if (video) text += videoLines(viewer);
  if (const auto details = viewer.pictureKind->traits.details; details != nullptr) text += details(viewer);
  return text;
}

} // namespace

std::string imageInfo(ViewerState &viewer) {
  const bool open = viewer.inputFile.handle != nullptr;
  if (!open) openInputFile(viewer.inputFile, *viewer.platform.files, openedPath(viewer));
  std::string text = infoLines(viewer);
  if (!open) closeInputFile(viewer.inputFile);
  return text;
}

void menuImageInfo_Click(ViewerState &viewer) { showText(viewer, "Image Info", imageInfo(viewer)); }
