#include "video/eva_player.h"

#include "state/palette.h"
#include "base/text.h"
#include "screens/byte_pixels.h"
#include "pixels/pixel_kernels.h"
#include "video/playback.h"
#include "video/sound_track.h"
#include "video/video_mode.h"

#include <algorithm>
#include <cstring>

// A file is a row of blocks of 15360 bytes, a frame each, without any header; two bytes in the unused end of block 0
// say what the video is:
//   15343   8: Screen 8 bytes; else YJK groups
//   15359   5: 12 frames a second; 6: 10 frames a second
// A block at 12 frames a second: 106 lines of 140 bytes, in each eleven times 1 sound sample and 11 video bytes, then
// 1 sample and 7 video bytes; behind the lines 40 more samples.
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

constexpr size_t kFrameBytes = size_t{kEvaWidth} * kEvaHeight;
constexpr size_t kMostSlots = 12;

// A line of a block at 12 frames a second; a sample goes before each group.
constexpr size_t kLineGroups = 11;
constexpr size_t kGroupVideoBytes = 11;
constexpr size_t kLastGroupVideoBytes = 7;

constexpr int kLumaLevels = 32;
constexpr int kChromaLevels = 64;

int signedChroma(int value) { return value > 31 ? value - kChromaLevels : value; }

uint32_t level(int32_t sum) { return static_cast<uint32_t>(std::clamp(sum, 0, kLumaLevels - 1)) * 8; }

// Unlike that of a still picture, blue is a whole level: intended.
uint32_t yjkColour(int k, int j, int y) {
  return packColour(level(y + j), level(y + k), level(roundHalfEven(1.25 * y - j / 2.0 - k / 4.0)));
}

void runEvents(const ViewerState &viewer) { viewer.platform.runPendingEvents(viewer.platform.context); }

// The window stays alive between the groups of tables.
void buildTables(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  eva.yjkColourTable.reserve(size_t{kChromaLevels} * kChromaLevels * kLumaLevels);
  for (int k = 0; k < kChromaLevels; ++k) {
    for (int j = 0; j < kChromaLevels; ++j) {
      for (int y = 0; y < kLumaLevels; ++y)
        eva.yjkColourTable.push_back(yjkColour(signedChroma(k), signedChroma(j), y));
    }
  }
  runEvents(viewer);
  for (uint32_t byte = 0; byte < 256; ++byte) eva.lumaTable.push_back(byte >> 3);
  for (uint32_t high = 0; high < 256; ++high) {
    for (uint32_t low = 0; low < 256; ++low) eva.chromaTable.push_back((high & 7) + (low & 7) * 8);
  }
  runEvents(viewer);
  for (uint32_t byte = 0; byte < 256; ++byte) {
    eva.rgbColourTable.push_back(packColour((byte & 28) * 8, byte & 224, (byte & 3) * 64));
  }
  runEvents(viewer);
}

void prepare(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  if (eva.tablesReady == kTrue) return;
  eva.tablesReady = kTrue;
  eva.videoRing.resize(kMostSlots * kFrameBytes);
  eva.framePixels.resize(kFrameBytes);
  eva.frameHeader = {.width = kEvaWidth, .height = -kEvaHeight, .imageBytes = kFrameBytes * sizeof(uint32_t)};
  buildTables(viewer);
}

void takeRate(ViewerState &viewer) {
  const uint8_t code = readByte(viewer.inputFile, kRatePos);
  if (code != kRate12 && code != kRate10) return;
  viewer.evaPlayer.framesPerSecond = code == kRate12 ? 12 : 10;
  sizeSoundImage(viewer);
}

uint8_t *ringSlot(EvaPlayer &eva) {
  return eva.videoRing.data() + static_cast<size_t>(eva.currentFrame % eva.framesPerSecond) * kFrameBytes;
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

void decodeYjk(EvaPlayer &eva) {
  const auto draw = pixelKernels().wholeYjk;
  const std::span<const uint8_t> frame(ringSlot(eva), kFrameBytes);
  if (draw != nullptr)
    draw(frame.data(), frame.size() / kGroupPixels, eva.framePixels.data());
  else
    drawYjkByTables(eva, frame, eva.framePixels.data());
}

void decodeRgb(EvaPlayer &eva) {
  pixelKernels().grb332(ringSlot(eva), kFrameBytes, eva.rgbColourTable.data(), eva.framePixels.data());
}

void decodeAndDraw(ViewerState &viewer, bool rgb) {
  EvaPlayer &eva = viewer.evaPlayer;
  if (eva.soundPending == kTrue) return;
  rgb ? decodeRgb(eva) : decodeYjk(eva);
  drawVideoFrame(viewer, eva.framePixels, eva.frameHeader);
}

} // namespace

void drawYjkByTables(const EvaPlayer &eva, std::span<const uint8_t> source, uint32_t *target) {
  const uint32_t *luma = eva.lumaTable.data();
  const uint32_t *chroma = eva.chromaTable.data();
  for (; source.size() >= kGroupPixels; source = source.subspan(kGroupPixels), target += kGroupPixels) {
    const size_t k = chroma[source[0] * 256U + source[1]];
    const size_t j = chroma[source[2] * 256U + source[3]];
    const uint32_t *colours = eva.yjkColourTable.data() + (k * kChromaLevels + j) * kLumaLevels;
    for (size_t i = 0; i < kGroupPixels; ++i) target[i] = colours[luma[source[i]]];
  }
}

bool evaRateKnown(const ViewerState &viewer) {
  const uint8_t code = readByte(viewer.inputFile, kRatePos);
  return code == kRate12 || code == kRate10 || viewer.evaPlayer.framesPerSecond != 0;
}

void openEva(ViewerState &viewer, const std::string &path) {
  constexpr size_t kExtensionLetters = 3;
  EvaPlayer &eva = viewer.evaPlayer;
  prepare(viewer);
  runEvents(viewer);
  eva.frameCount = roundHalfEven(static_cast<double>(inputFileLength(viewer.inputFile)) / kBlockBytes);
  takeRate(viewer);
  eva.isRgb = toFlag(readByte(viewer.inputFile, kColourKindPos) == kScreen8Kind ||
                     lastCharacters(path, kExtensionLetters) == "EV8");
  viewer.window.HScroll1.maximum = eva.frameCount - 1;
  viewer.window.HScroll1.value = 0;
  buildSoundImages(viewer);
  eva.soundPending = kFalse;
  const VideoFormat format{.width = kEvaWidth,
                           .height = kEvaHeight,
                           .bitsPerPixel = 8,
                           .colourMode = eva.isRgb == kTrue ? ColourModeGrb332 : ColourModeYjk,
                           .colourCount = static_cast<uint8_t>(eva.isRgb == kTrue ? 255 : 0)};
  if (!enterVideoMode(viewer, format)) {
    eva.fileOpen = kFalse;
    return;
  }
  showEvaFrame(viewer);
}

void readEvaFrame(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  std::array<uint8_t, kBlockBytes> block{};
  readBytes(viewer.inputFile, eva.currentFrame * kBlockBytes + 1, block);
  const auto takeBlock = eva.framesPerSecond == kSound12.framesPerSecond ? takeBlock12 : takeBlock10;
  takeBlock(block.data(), ringSlot(eva), soundSlot(viewer, eva.currentFrame));
  if (eva.soundPending == kTrue && eva.currentFrame == eva.startFrame + 1) {
    startSound(viewer);
    eva.soundPending = kFalse;
  }
}

void showEvaFrame(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  eva.currentFrame = viewer.window.HScroll1.value;
  const std::string rate = " " + std::to_string(eva.framesPerSecond);
  viewer.window.Label4 =
      eva.currentFrame < 1 ? "EVA [" + std::string(lastCharacters(rate, 2)) + "fps]" : frameText(eva.currentFrame);
  readEvaFrame(viewer);
  decodeAndDraw(viewer, eva.isRgb == kTrue);
}

void playEva(ViewerState &viewer) {
  EvaPlayer &eva = viewer.evaPlayer;
  ScrollBar &bar = viewer.window.HScroll1;
  eva.startFrame = runStart(bar, eva.frameCount);
  enableDuringRun(viewer, false);
  eva.soundPending = kTrue;
  eva.startTicks = viewer.platform.tickCount(viewer.platform.context);
  // In a run at 10 frames a second the YJK decoder draws every frame: intended.
  const bool rgb = eva.isRgb == kTrue && eva.framesPerSecond == kSound12.framesPerSecond;
  for (eva.currentFrame = eva.startFrame; eva.currentFrame < eva.frameCount; ++eva.currentFrame) {
    readEvaFrame(viewer);
    decodeAndDraw(viewer, rgb);
    if (!waitForFrame(viewer, eva.startTicks, eva.currentFrame - eva.startFrame, eva.framesPerSecond, eva.playing)) {
      break;
    }
    showFrameNumber(viewer, eva.currentFrame);
  }
  stopSound(viewer);
  eva.playing = kFalse;
  enableDuringRun(viewer, true);
}
