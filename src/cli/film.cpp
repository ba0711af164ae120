#include "cli/film.h"

#include "cli/opened_file.h"
#include "cli/output.h"
#include "video/eva_player.h"
#include "video/playback.h"
#include "video/sound_track.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

std::array<uint8_t, 3> yCbCr(uint32_t colour) {
  const int red = static_cast<int>(colour >> 16 & 255);
  const int green = static_cast<int>(colour >> 8 & 255);
  const int blue = static_cast<int>(colour & 255);
  // The standard's factors times 256, rounded.
  return {static_cast<uint8_t>(((66 * red + 129 * green + 25 * blue + 128) >> 8) + 16),
          static_cast<uint8_t>(((-38 * red - 74 * green + 112 * blue + 128) >> 8) + 128),
          static_cast<uint8_t>(((112 * red - 94 * green - 18 * blue + 128) >> 8) + 128)};
}

namespace {

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

std::string writeFrames(OpenedFile &file, const CliOutput &output) {
  const ViewerState &viewer = file.viewer;
  const std::string header = "YUV4MPEG2 W" + std::to_string(viewer.frameWidth) + " H" +
                             std::to_string(viewer.frameHeight) + " F" + std::to_string(playbackRate(viewer)) +
                             ":1 Ip A1:1 C444\n";
  std::vector<uint8_t> bytes(header.begin(), header.end());
  std::string failure = writeCliOutput(output, bytes);
  for (int32_t frame = 0; frame < framesOf(viewer) && failure.empty(); ++frame) {
    showFrame(file, frame);
    encodeFrame(viewer, bytes);
    failure = writeCliOutput(output, bytes);
  }
  return failure;
}

std::string writeSamples(OpenedFile &file, const CliOutput &output) {
  ViewerState &viewer = file.viewer;
  const SoundFormat &format = soundFormat(viewer);
  const uint64_t sampleBytes = static_cast<uint64_t>(viewer.evaPlayer.frameCount) * format.samplesPerFrame;
  if (sampleBytes > std::numeric_limits<uint32_t>::max() - kWaveHeaderBytes)
    return viewer.filePath + ": too long for a WAVE file";
  std::string failure = writeCliOutput(output, waveHeader(format, static_cast<uint32_t>(sampleBytes)));
  EvaFrame video;
  int32_t &frame = viewer.run.currentFrame;
  for (frame = 0; frame < viewer.evaPlayer.frameCount && failure.empty(); ++frame) {
    readEvaFrame(viewer, video);
    failure = writeCliOutput(output, soundSlot(viewer, frame));
  }
  constexpr std::array<uint8_t, 1> kPadding{};
  const bool odd = sampleBytes % 2 != 0;
  return odd && failure.empty() ? writeCliOutput(output, kPadding) : failure;
}

// Why nothing can be written, or an empty text.
std::string refusalOf(const ViewerState &viewer, CliCommand command) {
  if (std::string failure = refusal(viewer); !failure.empty()) return failure;
  const std::string &path = viewer.filePath;
  if (viewer.player == nullptr) return path + ": is no video";
  if (framesOf(viewer) <= 0 || viewer.frameBits.empty()) return path + ": holds no frames";
  return command == CliCommand::kSound && !viewer.player->hasSound ? path + ": holds no sound" : "";
}

bool writeFilm(const CliRequest &request, std::string (*write)(OpenedFile &file, const CliOutput &output)) {
  const std::string &path = request.files.front();
  const auto file = std::make_unique<OpenedFile>();
  openFile(*file, path);
  std::string failure = refusalOf(file->viewer, request.command);
  if (failure.empty() && fileIdentity(request.outPath) == fileIdentity(path))
    failure = path + ": would be replaced by itself";
  CliOutput output;
  if (failure.empty()) failure = beginCliOutput(output, request.outPath);
  if (failure.empty()) failure = finishCliOutput(output, write(*file, output));
  if (!failure.empty()) printError(failure);
  return failure.empty();
}

} // namespace

bool writeVideo(const CliRequest &request) { return writeFilm(request, writeFrames); }

bool writeSound(const CliRequest &request) { return writeFilm(request, writeSamples); }
