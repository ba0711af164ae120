// Fills `vram` and `packedData` from the open file.
#pragma once

#include "state/viewer_state.h"

// Maximum size of a picture in pixels; a header with more is not valid.
inline constexpr int64_t kMaxPixels = 64'000'000;

// Whether the size is at most kMaxPixels. A side below 1 fits: the picture is empty.
bool pictureFits(int64_t width, int64_t height);

// Shows "Loading..." and reads the file from `position` (1-based) on into `vram`, zero past the end of the file.
// `vram` grows to `pictureBytes` if it is smaller.
void loadVram(ViewerState &viewer, int32_t position, size_t pictureBytes = 0);

// The same, but bytes past the end of the file keep their value.
void overlayVram(ViewerState &viewer, int32_t position);

// Clears `vram`, which grows to `pictureBytes` if it is smaller.
void clearVram(ViewerState &viewer, size_t pictureBytes = 0);

// Resets video memory and packed body to a new window's.
void clearMemory(ViewerState &viewer);

// Shows "Loading...", reads the file from `position` (1-based) on into `packedData`, zero past the end of the file, and
// shows "Depacking...". `packedData` grows to `maxBytes` if it is smaller.
void loadPackedData(ViewerState &viewer, int32_t position, size_t maxBytes = 0);
