#include "video/vid_player.h"

#include "state/palette.h"
#include "pixels/symbos_bits.h"
#include "pixels/pixel_kernels.h"
#include "video/playback.h"
#include "video/video_mode.h"

#include <algorithm>
#include <array>

//  offset  size  field
//       0     8  magic "SymVid10"
//       8     1  0
//       9     1  0
//      10     1  frames a second
//      11     2  number of frames
//      13     1  0
//      14     2  width, pixels
//      16     2  height, lines
//      18     2  1: 4 colours, 7: 16 colours
//      51     2  bytes of a frame
//     512        frames, one after another
// Numbers are little-endian and signed. Rows run from the top and have no padding. 16 colours: the left pixel in the
// high nibble. 4 colours: the low bits of four pixels in bits 7-4, their high bits in bits 3-0, the left pixel first.

namespace {

constexpr std::string_view kMagic = "SymVid10";
constexpr std::array<int64_t, 3> kZeroPos = {9, 10, 14}; // 1-based, as all positions
constexpr int64_t kRatePos = 11;
constexpr int64_t kFrameCountPos = 12;
constexpr int64_t kWidthPos = 15;
constexpr int64_t kHeightPos = 17;
constexpr int64_t kColourCodePos = 19;
constexpr int64_t kFrameSizePos = 52;
constexpr int64_t kFramesPos = 513;
constexpr int16_t kFourColours = 1;
constexpr int16_t kSixteenColours = 7;

bool headerValid(const InputFile &file) {
  const auto isZero = [&file](int64_t position) { return readByte(file, position) == 0; };
  const int16_t colours = readSignedWord(file, kColourCodePos);
  return beginsWith(file, kMagic) && std::all_of(kZeroPos.begin(), kZeroPos.end(), isZero) &&
         (colours == kFourColours || colours == kSixteenColours);
}

// The four colours stand wherever one of the four pixels of a byte can lead, so that a masked byte needs no shift.
void fillPalette(VidPlayer &vid) {
  const auto &colours = symbosPalette();
  vid.palette.fill(0);
  if (vid.colourCode == kSixteenColours) {
    std::copy(colours.begin(), colours.end(), vid.palette.begin());
    return;
  }
  for (const size_t pixel : {1U, 4U, 16U, 64U}) {
    for (size_t colour = 0; colour < 4; ++colour) vid.palette[colour * pixel] = colours[colour];
  }
}

size_t notNegative(int32_t count) { return static_cast<size_t>(std::max(0, count)); }

void takeHeader(VidPlayer &vid, const InputFile &file) {
  vid.framesPerSecond = readByte(file, kRatePos);
  vid.frameCount = readSignedWord(file, kFrameCountPos);
  vid.width = readSignedWord(file, kWidthPos);
  vid.height = readSignedWord(file, kHeightPos);
  vid.colourCode = readSignedWord(file, kColourCodePos);
  vid.frameSize = readSignedWord(file, kFrameSizePos);
  if (vid.headerReady != kTrue) {
    vid.frameHeader = {.width = vid.width, .height = -vid.height};
    vid.headerReady = kTrue;
  }
  fillPalette(vid);
  vid.frameData.assign(notNegative(vid.frameSize + 1), 0);
  // The number of pixels is taken as a 16-bit value: intended.
  const auto pixels = static_cast<uint16_t>(vid.width * vid.height);
  vid.framePixels.assign(vid.width > 0 && vid.height > 0 ? pixels : 0, 0);
}

// Past the end of the file all is zero.
void readFrame(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  if (vid.frameSize < 0) return;
  readBytes(viewer.inputFile, kFramesPos + int64_t{vid.currentFrame} * vid.frameSize, vid.frameData);
  if (vid.colourCode == kFourColours) pairPictureBits(vid.frameData, vid.width, vid.height);
}

// Whole bytes only: pixels at the end of a row that fill no byte keep their value.
void decodeFrame(VidPlayer &vid) {
  const bool fourColours = vid.colourCode == kFourColours;
  const auto draw = fourColours ? pixelKernels().crumbs : pixelKernels().nibbles;
  const size_t pixelsPerByte = fourColours ? 4 : 2;
  const auto width = notNegative(vid.width);
  const auto height = notNegative(vid.height);
  const size_t rowBytes = width / pixelsPerByte;
  const bool rowsRunOn = width % pixelsPerByte == 0;
  const size_t runBytes = rowsRunOn ? rowBytes * height : rowBytes;
  const size_t runs = rowsRunOn ? 1 : height;
  std::span<const uint8_t> source = vid.frameData;
  for (size_t run = 0; run < runs && run * width <= vid.framePixels.size(); ++run) {
    const std::span<uint32_t> target = std::span(vid.framePixels).subspan(run * width);
    const size_t bytes = std::min(runBytes, target.size() / pixelsPerByte);
    const size_t given = std::min(bytes, source.size());
    draw(source.data(), given, vid.palette.data(), target.data());
    // Behind the data all bytes are zero.
    std::fill_n(target.data() + given * pixelsPerByte, (bytes - given) * pixelsPerByte, vid.palette[0]);
    source = source.subspan(given);
  }
}

void readAndDraw(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  readFrame(viewer);
  decodeFrame(vid);
  drawVideoFrame(viewer, vid.framePixels, vid.frameHeader);
}

} // namespace

bool openVid(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  if (!headerValid(viewer.inputFile)) {
    vid.fileOpen = kFalse;
    viewer.platform.showMessage(viewer.platform.context, "Korilan", "o_O", MessageIcon::kNone);
    return false;
  }
  takeHeader(vid, viewer.inputFile);
  const VideoFormat format{.width = vid.width,
                           .height = vid.height,
                           .bitsPerPixel = static_cast<uint8_t>(vid.colourCode == kFourColours ? 2 : 4),
                           .colourMode = 0,
                           .colourCount = 0};
  if (!enterVideoMode(viewer, format)) {
    vid.fileOpen = kFalse;
    return false;
  }
  viewer.platform.runPendingEvents(viewer.platform.context);
  viewer.window.HScroll1.maximum = vid.frameCount - 1;
  viewer.window.HScroll1.value = 0;
  showVidFrame(viewer);
  return true;
}

void showVidFrame(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  vid.currentFrame = viewer.window.HScroll1.value;
  viewer.window.Label4 =
      vid.currentFrame < 1 ? "VID [" + std::to_string(vid.framesPerSecond) + "fps]" : frameText(vid.currentFrame);
  readAndDraw(viewer);
}

void playVid(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  vid.startFrame = runStart(viewer.window.HScroll1, vid.frameCount);
  enableDuringRun(viewer, false);
  vid.startTicks = viewer.platform.tickCount(viewer.platform.context);
  for (vid.currentFrame = vid.startFrame; vid.currentFrame < vid.frameCount; ++vid.currentFrame) {
    readAndDraw(viewer);
    if (!waitForFrame(viewer, vid.startTicks, vid.currentFrame - vid.startFrame, vid.framesPerSecond, vid.playing)) {
      break;
    }
    showFrameNumber(viewer, vid.currentFrame);
  }
  vid.playing = kFalse;
  enableDuringRun(viewer, true);
}
