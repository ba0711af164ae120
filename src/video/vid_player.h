// SymbOS videos: frames of 4 or 16 colours, silent.
#pragma once

#include "state/viewer_state.h"

// Accepts any file: the player refuses an invalid header itself, with a message. Answers as FileKind::load.
bool loadVid(ViewerState &viewer);

extern const VideoPlayer kVidPlayer;
