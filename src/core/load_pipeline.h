// What every loader does after its checks: labels, the body into video memory, rendering.
#pragma once

#include "state/viewer_state.h"

// Fills Label1 to Label3 from the picture's description and clears the status line.
// Without a file all four labels are cleared; while a video plays nothing happens.
void showPictureInfo(ViewerState &viewer);

// The largest picture, in pixels; a header that asks for more is not valid.
inline constexpr int64_t kMaxPixels = 64'000'000;

// Whether a picture of that size can be shown. No size is too small: below 1 the picture is empty.
bool pictureFits(int64_t width, int64_t height);

// Shows "Loading..." and reads the file from `position` (1-based) on into `vram`, zero where the file ends.
// `vram` grows to `pictureBytes` where it is smaller.
void loadVram(ViewerState &viewer, int32_t position, size_t pictureBytes = 0);

// The same, but what the file does not give keeps its value.
void overlayVram(ViewerState &viewer, int32_t position);

// All zero again, and as large as a picture of `pictureBytes` needs.
void clearVram(ViewerState &viewer, size_t pictureBytes = 0);

// Video memory and packed body as in a new window.
void clearMemory(ViewerState &viewer);

// Shows "Loading...", reads the file from `position` (1-based) on into `packedData`, zero where the file ends, and
// shows "Depacking...". `packedData` grows for a body of up to `mostBytes`.
void loadPackedData(ViewerState &viewer, int32_t position, size_t mostBytes = 0);

// Last step of every loader: renders, sizes the view and enables the commands that need a picture.
void renderAndShow(ViewerState &viewer);
