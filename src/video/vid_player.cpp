#include "video/vid_player.h"

#include "pixels/pixel_kernels.h"
#include "pixels/symbos_bits.h"
#include "state/palette.h"
#include "state/platform_calls.h"
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
  const int16_t colourCode = readSignedWord(file, kColourCodePos);
  return beginsWith(file, kMagic) && std::all_of(kZeroPos.begin(), kZeroPos.end(), isZero) &&
         (colourCode == kFourColours || colourCode == kSixteenColours);
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
    vid.shownWidth = vid.width;
    vid.shownHeight = vid.height;
    vid.headerReady = kTrue;
  }
  vid.palette = kSymbosPalette;
  vid.frameData.assign(notNegative(vid.frameSize + 1), 0);
  // The number of pixels is a 16-bit value: intended, the machine has no larger frames.
  const auto pixels = static_cast<uint16_t>(vid.width * vid.height);
  vid.framePixels.assign(vid.width > 0 && vid.height > 0 ? pixels : 0, 0);
}

// Bytes past the end of the file are zero.
void readFrame(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  if (vid.frameSize < 0) return;
  readBytes(viewer.inputFile, kFramesPos + int64_t{viewer.run.currentFrame} * vid.frameSize, vid.frameData);
  if (vid.colourCode == kFourColours) pairPictureBits(vid.frameData, vid.width, vid.height);
}

// Whole bytes only: the pixels of a partial byte at the end of a row keep their value.
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
    // Bytes behind the data count as zero.
    std::fill_n(target.data() + given * pixelsPerByte, (bytes - given) * pixelsPerByte, vid.palette[0]);
    source = source.subspan(given);
  }
}

void readAndDraw(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  readFrame(viewer);
  decodeFrame(vid);
  drawVideoFrame(viewer, {vid.framePixels, vid.shownWidth, vid.shownHeight});
}

int32_t frames(const ViewerState &viewer) { return viewer.vidPlayer.frameCount; }

int32_t rate(const ViewerState &viewer) { return viewer.vidPlayer.framesPerSecond; }

void showFrame(ViewerState &viewer) {
  const int32_t frame = viewer.run.currentFrame = viewer.window.HScroll1.value;
  viewer.window.Label4 =
      frame < 1 ? "VID [" + std::to_string(viewer.vidPlayer.framesPerSecond) + "fps]" : frameText(frame);
  readAndDraw(viewer);
}

bool open(ViewerState &viewer) {
  VidPlayer &vid = viewer.vidPlayer;
  if (!headerValid(viewer.inputFile)) {
    viewer.player = nullptr;
    viewer.loadError = "o_O";
    showMessage(viewer, "Korilan", viewer.loadError, MessageIcon::kNone);
    return false;
  }
  takeHeader(vid, viewer.inputFile);
  const PictureSettings format{.bitsPerPixel = static_cast<int16_t>(vid.colourCode == kFourColours ? 2 : 4),
                               .imageWidth = vid.width,
                               .imageHeight = vid.height};
  if (!enterVideoMode(viewer, format)) return false;
  runPendingEvents(viewer);
  viewer.window.HScroll1.maximum = vid.frameCount - 1;
  viewer.window.HScroll1.value = 0;
  showFrame(viewer);
  return true;
}

std::span<const uint32_t> colours(const ViewerState &viewer) {
  const VidPlayer &vid = viewer.vidPlayer;
  return std::span(vid.palette).first(vid.colourCode == kFourColours ? 4 : 16);
}

} // namespace

constexpr VideoPlayer kVidPlayer = {.hasSound = false,
                                    .frames = frames,
                                    .rate = rate,
                                    .colours = colours,
                                    .open = open,
                                    .show = showFrame,
                                    .play = readAndDraw};

bool loadVid(ViewerState &) { return true; }
