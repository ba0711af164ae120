#pragma once

// Videos: blocks of picture and sound at 12 or 10 frames per second (EVA, EV8) and SymbOS videos (VID).

#include <cstddef>

#include "picture_types.h"

namespace samples {

constexpr int kEvaWidth = 128, kEvaHeight = 106;
constexpr std::size_t kEvaBlockSize = 15360;
constexpr std::size_t kEvaColourPlace = 15343, kEvaRatePlace = 15359; // in the first block

// Samples of a frame, for 12 or 10 frames per second; frames of one second make up the rate.
std::size_t evaSoundSize(int framesPerSecond);

// Where the picture bytes and the samples of a frame lie in its block, each counted from 0. At 12 frames per second
// they take turns, at 10 the sound follows the picture.
std::size_t evaPicturePlace(int framesPerSecond, std::size_t index);
std::size_t evaSoundPlace(int framesPerSecond, std::size_t index);

Bytes evaBlock(int framesPerSecond, const Bytes &picture, const Bytes &sound);

// GGGRRRBB bytes in the ordered pattern, so that nothing flickers that stands still.
Bytes encodeVideoRgb(const TruePicture &picture);

// Four or sixteen colours; lines of whole bytes, further pixels are left out.
Bytes vidFrame(const IndexedPicture &picture, int colourCount);

struct VidHeader {
  int framesPerSecond = 0, frameCount = 0, width = 0, height = 0, colourCount = 0, frameSize = 0;
};

constexpr std::size_t kVidHeaderSize = 512;
Bytes vidHeader(const VidHeader &header);

} // namespace samples
