// Commands on the open video: Play, Stop, the frame scroll bar and their keys.
#pragma once

#include "state/viewer_state.h"

// The Play button: plays the open video from the scroll bar's frame, then shows frame 0. Does nothing while a video
// plays, or if it has no frames.
void Image1_Click(ViewerState &viewer);

// One step of a run on a platform that steps videos: plays a frame if it is due, or ends the run.
void stepVideo(ViewerState &viewer);

// The Stop button: ends the run and shows frame 0.
void Image2_Click(ViewerState &viewer);

// The user has moved the frame scroll bar. Ignored while a video plays: the run sets the bar.
void HScroll1_Change(ViewerState &viewer, int32_t value);

// Keys of the video: play or stop, next frame, previous frame.
void togglePlayback(ViewerState &viewer);
void showNextFrame(ViewerState &viewer);
void showFrameBefore(ViewerState &viewer);
