#include "cli/film.h"

#include "video/eva_player.h"
#include "video/playback.h"
#include "video/sound_track.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace {

// BT.601: Y is the sum of the weighted channels, Cb and Cr are what blue and red have more than it, to +-0.5.
constexpr double kRedWeight = 0.299;
constexpr double kBlueWeight = 0.114;
constexpr double kGreenWeight = 1 - kRedWeight - kBlueWeight;
constexpr double kBlueDifference = 2 * (1 - kBlueWeight);
constexpr double kRedDifference = 2 * (1 - kRedWeight);

// The limited range: black is 16, white 219 above it; differences reach 112 to both sides of 128.
constexpr int kBlack = 16;
constexpr int kNoDifference = 128;
constexpr double kLumaRange = 219;
constexpr double kDifferenceRange = 224;

// A factor for channels from 0 to 255, in 65536ths.
constexpr int kFactorBits = 16;
constexpr int factor(double range, double weight) {
  const double scaled = range * weight / 255 * (1 << kFactorBits);
  return static_cast<int>(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
}

struct Factors {
  int red;
  int green;
  int blue;
};

constexpr Factors kLuma{factor(kLumaRange, kRedWeight), factor(kLumaRange, kGreenWeight),
                        factor(kLumaRange, kBlueWeight)};
constexpr Factors kBlue{factor(kDifferenceRange, -kRedWeight / kBlueDifference),
                        factor(kDifferenceRange, -kGreenWeight / kBlueDifference), factor(kDifferenceRange, 0.5)};
constexpr Factors kRed{factor(kDifferenceRange, 0.5), factor(kDifferenceRange, -kGreenWeight / kRedDifference),
                       factor(kDifferenceRange, -kBlueWeight / kRedDifference)};

uint8_t weighted(uint32_t colour, const Factors &factors, int zero) {
  const int red = static_cast<int>(colour >> 16 & 255);
  const int green = static_cast<int>(colour >> 8 & 255);
  const int blue = static_cast<int>(colour & 255);
  constexpr int kHalf = 1 << (kFactorBits - 1);
  const int sum = factors.red * red + factors.green * green + factors.blue * blue + kHalf;
  return static_cast<uint8_t>((sum >> kFactorBits) + zero);
}

// Y, Cb and Cr of a colour word 0x00RRGGBB, rounded to the nearest.
std::array<uint8_t, 3> yCbCr(uint32_t colour) {
  return {weighted(colour, kLuma, kBlack), weighted(colour, kBlue, kNoDifference),
          weighted(colour, kRed, kNoDifference)};
}

// Y, U and V planes behind the frame's own header.
void encodeFrame(const ViewerState &viewer, std::vector<uint8_t> &frame) {
  constexpr std::string_view kFrameHeader = "FRAME\n";
  const std::span<const uint32_t> pixels = viewer.frameBits;
  frame.resize(kFrameHeader.size() + 3 * pixels.size());
  uint8_t *const luma = std::copy(kFrameHeader.begin(), kFrameHeader.end(), frame.data());
  uint8_t *const blue = luma + pixels.size();
  uint8_t *const red = blue + pixels.size();
  for (size_t i = 0; i < pixels.size(); ++i) { // vectorised
    const auto parts = yCbCr(pixels[i]);
    luma[i] = parts[0];
    blue[i] = parts[1];
    red[i] = parts[2];
  }
}

} // namespace

std::string putVideo(OpenedFile &file, const PutBytes &put) {
  const ViewerState &viewer = file.viewer;
  const std::string header = "YUV4MPEG2 W" + std::to_string(viewer.frameWidth) + " H" +
                             std::to_string(viewer.frameHeight) + " F" + std::to_string(playbackRate(viewer)) +
                             ":1 Ip A1:1 C444 XCOLORRANGE=LIMITED\n";
  std::vector<uint8_t> bytes(header.begin(), header.end());
  std::string failure = put(bytes);
  for (int32_t frame = 0; frame < framesOf(viewer) && failure.empty(); ++frame) {
    showFrame(file, frame);
    encodeFrame(viewer, bytes);
    failure = put(bytes);
  }
  return failure;
}

std::string putSound(OpenedFile &file, const PutBytes &put) {
  ViewerState &viewer = file.viewer;
  const SoundFormat &format = soundFormat(viewer);
  const uint64_t sampleBytes = static_cast<uint64_t>(viewer.evaPlayer.frameCount) * format.samplesPerFrame;
  if (sampleBytes > std::numeric_limits<uint32_t>::max() - kWaveHeaderBytes) return "too long for a WAVE file";
  std::string failure = put(waveHeader(format, static_cast<uint32_t>(sampleBytes)));
  EvaFrame video;
  int32_t &frame = viewer.run.currentFrame;
  for (frame = 0; frame < viewer.evaPlayer.frameCount && failure.empty(); ++frame) {
    readEvaFrame(viewer, video);
    failure = put(soundSlot(viewer, frame));
  }
  constexpr std::array<uint8_t, 1> kPadding{};
  const bool odd = sampleBytes % 2 != 0;
  return odd && failure.empty() ? put(kPadding) : failure;
}

std::string refusalOfFilm(const ViewerState &viewer, CliCommand command) {
  if (viewer.player == nullptr) return "is no video";
  if (framesOf(viewer) <= 0 || viewer.frameBits.empty()) return "holds no frames";
  return command == CliCommand::kSound && !viewer.player->hasSound ? "holds no sound" : "";
}
