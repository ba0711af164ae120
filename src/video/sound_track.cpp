#include "video/sound_track.h"

#include <algorithm>
#include <string_view>

namespace {

// Zero level of the silence. Not 128: intended, the samples of the films are centred on 127.
constexpr uint8_t kSilentLevel = 127;
constexpr uint32_t kSilentSamples = 44;

void putWord(std::span<uint8_t> header, size_t offset, uint32_t word) {
  for (size_t i = 0; i < 4; ++i) header[offset + i] = static_cast<uint8_t>(word >> 8 * i);
}

void putText(std::span<uint8_t> header, size_t offset, std::string_view text) {
  std::copy(text.begin(), text.end(), header.begin() + static_cast<std::ptrdiff_t>(offset));
}

uint32_t sampleRate(const SoundFormat &format) {
  return static_cast<uint32_t>(format.framesPerSecond) * format.samplesPerFrame;
}

} // namespace

const SoundFormat &soundFormat(const ViewerState &viewer) {
  return viewer.evaPlayer.framesPerSecond == kSound12.framesPerSecond ? kSound12 : kSound10;
}

std::array<uint8_t, kWaveHeaderBytes> waveHeader(const SoundFormat &format, uint32_t sampleBytes) {
  std::array<uint8_t, kWaveHeaderBytes> header{};
  putText(header, 0, "RIFF");
  const uint32_t padding = sampleBytes % 2; // chunks have an even length
  putWord(header, 4, static_cast<uint32_t>(kWaveHeaderBytes) - 8 + sampleBytes + padding);
  putText(header, 8, "WAVEfmt ");
  putWord(header, 16, 16);
  header[20] = 1;
  header[22] = 1;
  putWord(header, 24, sampleRate(format));
  putWord(header, 28, sampleRate(format));
  header[32] = 1;
  header[34] = 8;
  putText(header, 36, "data");
  putWord(header, 40, sampleBytes);
  return header;
}

void sizeSoundImage(ViewerState &viewer) {
  SoundImages &images = viewer.soundImages;
  // Unfilled slots are audible in the first second of the first run.
  if (images.loopingBytes == 0) images.looping.fill(kSilentLevel);
  images.loopingBytes = kWaveHeaderBytes + sampleRate(soundFormat(viewer));
}

void buildSoundImages(ViewerState &viewer) {
  SoundImages &images = viewer.soundImages;
  const auto looping = waveHeader(soundFormat(viewer), sampleRate(soundFormat(viewer)));
  std::copy(looping.begin(), looping.end(), images.looping.begin());
  const auto silence = waveHeader(kSound12, kSilentSamples);
  std::copy(silence.begin(), silence.end(), images.silence.begin());
  std::fill(images.silence.begin() + kWaveHeaderBytes, images.silence.end(), kSilentLevel);
}

std::span<uint8_t> soundSlot(ViewerState &viewer, int32_t frame) {
  const SoundFormat &format = soundFormat(viewer);
  const auto slot = static_cast<size_t>(frame % format.framesPerSecond);
  return std::span(viewer.soundImages.looping)
      .subspan(kWaveHeaderBytes + slot * format.samplesPerFrame, format.samplesPerFrame);
}

void startSound(ViewerState &viewer) {
  const SoundImages &images = viewer.soundImages;
  viewer.platform.startSound(viewer.platform.context, std::span(images.looping).first(images.loopingBytes));
}

void stopSound(ViewerState &viewer) {
  const SoundImages &images = viewer.soundImages;
  if (images.loopingBytes == 0) return; // nothing is playing
  viewer.platform.stopSound(viewer.platform.context, images.silence);
}
