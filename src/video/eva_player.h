// EVA videos: 128 x 106 pixels in YJK groups or Screen 8 bytes, 12 or 10 frames a second, with sound.
#pragma once

#include "state/viewer_state.h"

#include <span>

inline constexpr int32_t kEvaWidth = 128;
inline constexpr int32_t kEvaHeight = 106;

// Whether the open file names a rate, or an earlier file has.
bool evaRateKnown(const ViewerState &viewer);

// Takes over the open file, which stays open until another one is opened: counts, tables, sound images; then shows
// frame 0. `path` is where it was opened.
void openEva(ViewerState &viewer, const std::string &path);

// Reads and shows the frame at the scroll bar's place.
void showEvaFrame(ViewerState &viewer);

// Plays from the scroll bar's place to the end, or until `playing` is cleared during an event pass. The caller has set
// `playing`.
void playEva(ViewerState &viewer);

// Reads one frame into its slots of the video ring and of the sound image. Past the end of the file all is zero.
void readEvaFrame(ViewerState &viewer);

// Writes the pixels of whole YJK groups through the tables: for processors without a kernel for it.
void drawYjkByTables(const EvaPlayer &eva, std::span<const uint8_t> source, uint32_t *target);
