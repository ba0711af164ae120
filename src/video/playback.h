// The run of a video, common to both players.
#pragma once

#include "state/viewer_state.h"

#include <string>

// "Frame: 7"
std::string frameText(int32_t frame);

// Frames a second of the open video, at least 1.
int32_t playbackRate(const ViewerState &viewer);

// Sets the window up for the open video and shows frame 0; without a player, or on failure, leaves video mode.
void setUpVideo(ViewerState &viewer);

// Plays the open video from the scroll bar's frame to the end, or until an event pass stores a request. The caller sets
// the activity before; afterwards a request is always stored.
void playVideo(ViewerState &viewer);

// Pauses picture and sound while a menu or dialog is open; resumes at the same frame and sample. Pauses can be nested.
void pausePlayback(ViewerState &viewer);
void resumePlayback(ViewerState &viewer);
