// Records of the two video players, of a run, and of the sound track.
#pragma once

#include "base/numbers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

struct ViewerState;

// The player of the open video as a table.
struct VideoPlayer {
  bool hasSound;
  int32_t (*frames)(const ViewerState &viewer);
  int32_t (*rate)(const ViewerState &viewer);                      // frames a second as stored in the file
  std::span<const uint32_t> (*colours)(const ViewerState &viewer); // of its frames; none if they have no palette
  // Sets the window up for the open file and shows frame 0. Returns false, with the error shown, on failure.
  bool (*open)(ViewerState &viewer);
  // Reads and shows the scroll bar's frame.
  void (*show)(ViewerState &viewer);
  // Reads and shows `currentFrame` during a run.
  void (*play)(ViewerState &viewer);
};

// The current frame and its run.
struct VideoRun {
  int32_t currentFrame = 0;
  int32_t shownFrame = 0; // the picture's; during a run scroll bar and status line follow later
  int32_t startFrame = 0;
  uint32_t startTicks = 0; // tick count at the start of the run
  uint32_t heldTicks = 0;  // tick count at which the run was paused
  bool hasSound = false;   // of its player, which Stop may close
  int32_t pauses = 0;      // nested pauses: a press on the menu bar, and the menu that it opens
};

struct EvaPlayer {
  Flag16 tablesReady = kFalse; // `framePixels` and `rgbColourTable` are filled
  int32_t frameCount = 0;
  int16_t framesPerSecond = 0;            // 12 or 10; 0 before the first file
  Flag16 isRgb = kFalse;                  // frames of Screen 8 bytes, otherwise of YJK groups
  Flag16 soundPending = kFalse;           // the run has not started its sound yet; nothing is drawn until then
  std::vector<uint32_t> framePixels = {}; // 0x00RRGGBB, top row first
  std::array<uint32_t, 256> rgbColourTable{};
};

struct VidPlayer {
  Flag16 headerReady = kFalse; // `shownWidth` and `shownHeight` are filled. Only paging clears it, so a file opened
                               // otherwise keeps the last size: intended, videos of a series have one size
  int32_t shownWidth = 0;      // pixels of a row of `framePixels`
  int32_t shownHeight = 0;
  int16_t framesPerSecond = 0;
  int32_t frameCount = 0;
  int16_t width = 0;
  int16_t height = 0;
  int16_t colourCode = 0;              // 1: 4 colours, 7: 16 colours
  int32_t frameSize = 0;               // bytes
  std::vector<uint8_t> frameData = {}; // frameSize + 1 bytes
  std::vector<uint32_t> framePixels = {};
  std::array<uint32_t, 16> palette{};
};

// WAVE files in memory. The sound device plays them in place: they never move.
struct SoundImages {
  std::array<uint8_t, 15794> looping{}; // one second of sound, written during playback
  size_t loopingBytes = 0;              // in use; 0 before the first video with sound
  std::array<uint8_t, 88> silence{};
};
