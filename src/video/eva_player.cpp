#include "video/eva_player.h"

#include "base/colours.h"
#include "base/paths.h"
#include "base/text.h"
#include "pixels/pixel_kernels.h"
#include "state/labels.h"
#include "state/platform_calls.h"
#include "video/playback.h"
#include "video/sound_track.h"
#include "video/video_mode.h"

#include <algorithm>
#include <cstring>
#include <limits>

// A file is a list of blocks of 15360 bytes, one per frame, without a header. Two bytes in the unused end of block 0:
//   15343   8: Screen 8 bytes; else YJK groups
//   15359   5: 12 frames a second; 6: 10 frames a second
// A block at 12 frames a second: 106 lines of 140 bytes, each of 11 times 1 sound sample and 11 video bytes, then
// 1 sample and 7 video bytes; then 40 samples.
// A block at 10 frames a second: 13568 video bytes, then 1575 samples.
// Video bytes: 106 lines of 32 groups of 4 pixels. YJK: luminance in bits 7-3, K in bits 2-0 of the first two bytes,
// J in those of the last two. Screen 8: green in bits 7-5, red in 4-2, blue in 1-0.

namespace {

constexpr int64_t kBlockBytes = 15360;
constexpr int64_t kColourKindPos = 15344; // 1-based
constexpr int64_t kRatePos = 15360;
constexpr uint8_t kScreen8Kind = 8;
constexpr uint8_t kRate12 = 5;
constexpr uint8_t kRate10 = 6;

constexpr size_t kFrameBytes = std::tuple_size_v<EvaFrame>;

// A line of a block at 12 frames a second; a sample precedes each group.
constexpr size_t kLineGroups = 11;
constexpr size_t kGroupVideoBytes = 11;
constexpr size_t kLastGroupVideoBytes = 7;

// Fills the tables at the first file.
void prepare(EvaPlayer &eva) {
  if (eva.tablesReady == kTrue) return;
  eva.tablesReady = kTrue;
  eva.framePixels.resize(kFrameBytes);
  for (uint32_t byte = 0; byte < eva.rgbColourTable.size(); ++byte) {
    eva.rgbColourTable[byte] = packColour((byte & 28) * 8, byte & 224, (byte & 3) * 64);
  }
}

void takeRate(ViewerState &viewer) {
  const uint8_t code = readByte(viewer.inputFile, kRatePos);
  if (code != kRate12 && code != kRate10) return;
  viewer.evaPlayer.framesPerSecond = code == kRate12 ? 12 : 10;
  sizeSoundImage(viewer);
}

void takeBlock12(const uint8_t *block, uint8_t *video, std::span<uint8_t> sound) {
  size_t samples = 0;
  for (int line = 0; line < kEvaHeight; ++line) {
    for (size_t group = 0; group < kLineGroups; ++group, block += kGroupVideoBytes, video += kGroupVideoBytes) {
      sound[samples++] = *block++;
      std::memcpy(video, block, kGroupVideoBytes);
    }
    sound[samples++] = *block++;
    std::memcpy(video, block, kLastGroupVideoBytes);
    block += kLastGroupVideoBytes;
    video += kLastGroupVideoBytes;
  }
  std::copy_n(block, sound.size() - samples, sound.begin() + static_cast<std::ptrdiff_t>(samples));
}

void takeBlock10(const uint8_t *block, uint8_t *video, std::span<uint8_t> sound) {
  std::copy_n(block, kFrameBytes, video);
  std::copy_n(block + kFrameBytes, sound.size(), sound.begin());
}

// Draws nothing until the run has started its sound.
void decodeAndDraw(ViewerState &viewer, const EvaFrame &video, bool rgb) {
  EvaPlayer &eva = viewer.evaPlayer;
  if (eva.soundPending == kTrue) return;
  if (rgb) {
    pixelKernels().grb332(video.data(), kFrameBytes, eva.rgbColourTable.data(), eva.framePixels.data());
  } else {
    pixelKernels().videoYjk(video.data(), kFrameBytes / kGroupPixels, eva.framePixels.data());
  }
  drawVideoFrame(viewer, {eva.framePixels, kEvaWidth, kEvaHeight});
}

int32_t frames(const ViewerState &viewer) { return viewer.evaPlayer.frameCount; }

int32_t rate(const ViewerState &viewer) { return viewer.evaPlayer.framesPerSecond; }

void showFrame(ViewerState &viewer) {
  const EvaPlayer &eva = viewer.evaPlayer;
  const int32_t frame = viewer.run.currentFrame = viewer.window.HScroll1.value;
  const std::string digits = " " + std::to_string(eva.framesPerSecond);
  viewer.window.Label4 = frame < 1 ? "EVA [" + std::string(lastCharacters(digits, 2)) + "fps]" : frameText(frame);
  EvaFrame video;
  readEvaFrame(viewer, video);
  decodeAndDraw(viewer, video, eva.isRgb == kTrue);
}

void playFrame(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  EvaFrame video;
  readEvaFrame(viewer, video);
  if (eva.soundPending == kTrue && viewer.run.currentFrame == viewer.run.startFrame + 1) {
    const uint32_t before = tickCount(viewer);
    startSound(viewer);
    viewer.run.startTicks += tickCount(viewer) - before; // a device that opens slowly delays the frames as well
    eva.soundPending = kFalse;
  }
  // A run at 10 frames a second draws every frame as YJK: intended, films of that rate are YJK.
  decodeAndDraw(viewer, video, eva.isRgb == kTrue && eva.framesPerSecond == kSound12.framesPerSecond);
}

bool open(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  prepare(eva);
  runPendingEvents(viewer);
  const double blocks = static_cast<double>(inputFileLength(viewer.inputFile)) / kBlockBytes;
  eva.frameCount = roundHalfEven(std::min<double>(blocks, std::numeric_limits<int32_t>::max() - 1));
  takeRate(viewer);
  // Case-sensitive, so "film.ev8" goes by its colour kind: intended, the extension is only the fallback.
  eva.isRgb = toFlag(readByte(viewer.inputFile, kColourKindPos) == kScreen8Kind ||
                     lastCharacters(openedPath(viewer), kExtensionLength - 1) == "EV8");
  viewer.window.HScroll1.maximum = eva.frameCount - 1;
  viewer.window.HScroll1.value = 0;
  buildSoundImages(viewer);
  eva.soundPending = kFalse;
  const bool rgb = eva.isRgb == kTrue;
  const PictureSettings format{.bitsPerPixel = 8,
                               .colourMode = rgb ? ColourModeGrb332 : ColourModeYjk,
                               .colourCount = static_cast<int16_t>(rgb ? 255 : 0),
                               .imageWidth = kEvaWidth,
                               .imageHeight = kEvaHeight};
  if (!enterVideoMode(viewer, format)) return false;
  showFrame(viewer);
  return true;
}

std::span<const uint32_t> colours(const ViewerState &viewer) {
  const EvaPlayer &eva = viewer.evaPlayer;
  return eva.isRgb == kTrue ? std::span<const uint32_t>(eva.rgbColourTable) : std::span<const uint32_t>();
}

} // namespace

constexpr VideoPlayer kEvaPlayer = {.hasSound = true,
                                    .frames = frames,
                                    .rate = rate,
                                    .colours = colours,
                                    .open = open,
                                    .show = showFrame,
                                    .play = playFrame};

bool loadEva(ViewerState &viewer) {
  const uint8_t code = readByte(viewer.inputFile, kRatePos);
  // Without a rate the last file's one is kept.
  if (code == kRate12 || code == kRate10 || viewer.evaPlayer.framesPerSecond != 0) return true;
  return reportNotValid(viewer);
}

void readEvaFrame(ViewerState &viewer, EvaFrame &video) {
  const int32_t frame = viewer.run.currentFrame;
  std::array<uint8_t, kBlockBytes> block;
  readBytes(viewer.inputFile, frame * kBlockBytes + 1, block);
  const bool mixed = viewer.evaPlayer.framesPerSecond == kSound12.framesPerSecond;
  (mixed ? takeBlock12 : takeBlock10)(block.data(), video.data(), soundSlot(viewer, frame));
}
