// The sound of a video: one second as a WAVE file in memory, looped by the sound device while each frame's samples are
// written ahead of what is heard.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstdint>
#include <span>

// Bytes of a WAVE file in front of its samples: "RIFF", length of the rest, "WAVE", "fmt ", 16, PCM, 1 channel, rate,
// bytes a second, 1 byte a sample, 8 bits a sample, "data", length of the samples.
inline constexpr size_t kWaveHeaderBytes = 44;

struct SoundFormat {
  int framesPerSecond;
  uint32_t samplesPerFrame;
};

// 12 frames of 1312 samples make 15744 Hz, 10 of 1575 make 15750 Hz.
inline constexpr SoundFormat kSound12 = {12, 1312};
inline constexpr SoundFormat kSound10 = {10, 1575};

// The format of the player's present rate; that of 10 for every rate but 12.
const SoundFormat &soundFormat(const ViewerState &viewer);

// The header of a file of `sampleBytes` samples, unsigned 8 bits mono; a byte of padding follows an odd number of them.
std::array<uint8_t, kWaveHeaderBytes> waveHeader(const SoundFormat &format, uint32_t sampleBytes);

// Sizes the looping image for the player's rate.
void sizeSoundImage(ViewerState &viewer);

// Writes the headers of both images and the silence. The samples of the looping image stay as they are.
void buildSoundImages(ViewerState &viewer);

// Where the samples of a frame of the open video go.
std::span<uint8_t> soundSlot(ViewerState &viewer, int32_t frame);

// Plays the looping image from its beginning, over and over.
void startSound(ViewerState &viewer);

// Ends the loop; does no harm while nothing plays.
void stopSound(ViewerState &viewer);
