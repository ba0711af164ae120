// The sound device: loops the samples of a WAVE file in memory, read in place by a thread of their own.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

struct SoundBuffer {
  WAVEHDR header{};
  std::array<char, 236> samples{}; // 15 ms at 15744 and at 15750 Hz
};

struct SoundDevice {
  HWAVEOUT output = nullptr;            // nullptr: nothing plays
  HANDLE bufferDone = nullptr;          // event; set also to end the thread
  HANDLE feeder = nullptr;              // thread that keeps the device supplied
  std::array<SoundBuffer, 4> buffers{}; // together the 60 ms that the device has ahead of what is heard
  std::span<const uint8_t> ring;        // samples of the loop
  uint32_t rate = 0;                    // samples a second
  int64_t next = 0;                     // sample to hand over next, counted from the start of the loop
  int early = 0;                        // buffers in a row that were handed over long before they were due
  std::atomic<int64_t> start = 0;   // time at which the loop started, plus the time that it was held, in milliseconds
  int64_t heldAt = 0;               // time at which it was held
  std::atomic<bool> held = false;   // no time passes for the loop
  std::atomic<bool> ending = false; // the thread is to end
};

// Plays from the first sample on. Without a device, and if it refuses the format, nothing happens.
void startLoop(SoundDevice &sound, std::span<const uint8_t> image);

// Pause at a sample; resume at the same one. No effect if nothing plays.
void holdLoop(SoundDevice &sound);
void resumeLoop(SoundDevice &sound);

// Silent at once; closes the device. No effect if nothing plays.
void stopLoop(SoundDevice &sound);
