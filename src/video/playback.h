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

// A run of the open video begins at the scroll bar's frame; the caller sets the activity before.
void beginRun(ViewerState &viewer);

// Plays to the end, or until an event pass stores a request.
void waitForRun(ViewerState &viewer);

// The same without waiting: plays a frame if it is due. Returns false if the run is to end.
bool stepRun(ViewerState &viewer);

// Ends the run; afterwards a request is always stored.
void endRun(ViewerState &viewer);

// Pauses picture and sound while a menu or dialog is open; resumes at the same frame and sample. Pauses can be nested.
void pausePlayback(ViewerState &viewer);
void resumePlayback(ViewerState &viewer);
