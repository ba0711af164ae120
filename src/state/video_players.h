// The records of the two video players and of the sound track.
#pragma once

#include "base/numbers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

// How `framePixels` is to be read, laid out as the header of a device-independent bitmap.
struct FrameHeader {
  uint32_t headerBytes = 40;
  int32_t width = 0;  // pixels
  int32_t height = 0; // lines; negative: top row first
  uint16_t planes = 1;
  uint16_t bitsPerPixel = 32;
  uint32_t compression = 0;
  uint32_t imageBytes = 0;
  std::array<uint32_t, 4> leftOpen{}; // resolution and colours
};
static_assert(sizeof(FrameHeader) == 40);

struct EvaPlayer {
  Flag16 fileOpen = kFalse;
  Flag16 tablesReady = kFalse; // the tables and `frameHeader` are filled
  int32_t frameCount = 0;
  int16_t framesPerSecond = 0; // 12 or 10; 0 before the first file
  Flag16 isRgb = kFalse;       // frames of Screen 8 bytes, otherwise of YJK groups
  int32_t currentFrame = 0;    // read or shown
  int32_t startFrame = 0;      // of the run
  uint32_t startTicks = 0;     // milliseconds, at the start of the run
  Flag16 playing = kFalse;
  Flag16 soundPending = kFalse;           // the run has no sound yet; nothing is drawn meanwhile
  std::vector<uint8_t> videoRing = {};    // frame f from (f mod framesPerSecond) * bytes of a frame on
  std::vector<uint32_t> framePixels = {}; // 0x00RRGGBB, top row first
  FrameHeader frameHeader = {};
  std::vector<uint32_t> lumaTable = {};      // by byte
  std::vector<uint32_t> chromaTable = {};    // by first byte * 256 + second
  std::vector<uint32_t> yjkColourTable = {}; // by (K * 64 + J) * 32 + Y
  std::vector<uint32_t> rgbColourTable = {}; // by byte
};

struct VidPlayer {
  Flag16 fileOpen = kFalse;
  Flag16 headerReady = kFalse; // `frameHeader` is filled; only paging clears it, so that a file opened in another way
                               // is shown in the size of the one before: intended
  int16_t framesPerSecond = 0;
  int32_t frameCount = 0;
  int16_t width = 0;
  int16_t height = 0;
  int16_t colourCode = 0; // 1: 4 colours, 7: 16 colours
  int32_t frameSize = 0;  // bytes
  int32_t currentFrame = 0;
  int32_t startFrame = 0;
  uint32_t startTicks = 0;
  Flag16 playing = kFalse;
  std::vector<uint8_t> frameData = {}; // frameSize + 1 bytes
  std::vector<uint32_t> framePixels = {};
  std::array<uint32_t, 256> palette{};
  FrameHeader frameHeader = {};
};

// WAVE files in memory. The sound device plays them where they stand, so they never move.
struct SoundImages {
  std::array<uint8_t, 15794> looping{}; // one second of a video's sound, written while it plays
  size_t loopingBytes = 0;              // in use; 0 before the first video with sound
  std::array<uint8_t, 88> silence{};
};
