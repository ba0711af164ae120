// What the runs of both players share.
#pragma once

#include "state/viewer_state.h"

#include <string>

// "Frame: 7"
std::string frameText(int32_t frame);

// Where a run begins: at the scroll bar's place, or at frame 0, where the bar is put, when that is the last frame.
int32_t runStart(ScrollBar &bar, int32_t frameCount);

// The commands that would load or draw a picture cannot be chosen during a run.
void enableDuringRun(ViewerState &viewer, bool enabled);

// Waits until the frame with that number, counted from the start of the run, is due, with event passes in between.
// A rate of 0 counts as 1. An event pass may move `startTicks`. Returns false, at once, when an event pass has cleared
// `playing`.
bool waitForFrame(ViewerState &viewer, const uint32_t &startTicks, int32_t frame, int framesPerSecond,
                  const Flag16 &playing);

// The window system keeps the program for itself, in a menu or a dialog, and lets it go again: the run, where there is
// one, is silent meanwhile and goes on from the same frame.
void holdRun(ViewerState &viewer);
void resumeRun(ViewerState &viewer);

// Puts the scroll bar and the status line on a frame of the run.
void showFrameNumber(ViewerState &viewer, int32_t frame);
