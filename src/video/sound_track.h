// The sound of a video: one second as a WAVE file in memory, looped by the sound device while each frame's samples are
// written ahead of the playing position.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstdint>
#include <span>

// Header of a WAVE file: "RIFF", length of the rest, "WAVE", "fmt ", 16, PCM, 1 channel, rate, bytes per second, 1 byte
// per sample, 8 bits per sample, "data", length of the samples.
inline constexpr size_t kWaveHeaderBytes = 44;

struct SoundFormat {
  int framesPerSecond;
  uint32_t samplesPerFrame;
};

constexpr uint32_t samplesPerSecond(SoundFormat format) {
  return static_cast<uint32_t>(format.framesPerSecond) * format.samplesPerFrame;
}

// 12 frames of 1312 samples make 15744 Hz, 10 of 1575 make 15750 Hz.
inline constexpr SoundFormat kSound12 = {12, 1312};
inline constexpr SoundFormat kSound10 = {10, 1575};

// The format of the player's rate: kSound12 at 12 frames a second, otherwise kSound10.
const SoundFormat &soundFormat(const ViewerState &viewer);

// The header of a file of `sampleBytes` samples, unsigned 8 bits mono; a padding byte follows an odd number.
std::array<uint8_t, kWaveHeaderBytes> waveHeader(const SoundFormat &format, uint32_t sampleBytes);

// Sizes the looping image for the player's rate.
void sizeSoundImage(ViewerState &viewer);

// Writes the headers of both images and the silence. Keeps the samples of the looping image.
void buildSoundImages(ViewerState &viewer);

// The samples of a frame of the open video in the looping image.
std::span<uint8_t> soundSlot(ViewerState &viewer, int32_t frame);

// Loops the looping image from its start.
void startSound(ViewerState &viewer);

// Ends the loop; no-op if nothing plays.
void stopSound(ViewerState &viewer);
