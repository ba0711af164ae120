// EVA videos: 128 x 106 pixels in YJK groups or Screen 8 bytes, 12 or 10 frames a second, with sound.
#pragma once

#include "state/viewer_state.h"

// Checks the open file. Answers as FileKind::load.
bool loadEva(ViewerState &viewer);

extern const VideoPlayer kEvaPlayer;

inline constexpr int32_t kEvaWidth = 128;
inline constexpr int32_t kEvaHeight = 106;

// The video bytes of one frame.
using EvaFrame = std::array<uint8_t, size_t{kEvaWidth} * kEvaHeight>;

// Reads the current frame: its video bytes, and its samples into their slot of the sound image. Bytes past the end of
// the file are zero.
void readEvaFrame(ViewerState &viewer, EvaFrame &video);
