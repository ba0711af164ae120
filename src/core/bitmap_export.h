// The shown picture as a Windows bitmap: saved beside its file, or on the clipboard.
#pragma once

#include "pixels/bitmap.h"
#include "state/viewer_state.h"

#include <functional>
#include <string>

// The shown picture at its own size.
PixelView shownPicture(const ViewerState &viewer);

// The path for Save as Bitmap: where what is made of the picture's file is saved, with the last three characters
// replaced by "bmp". A video's frame adds its four-digit number.
std::string bitmapPath(const ViewerState &viewer);

// What the number of a video's frame adds to a file's name: " - 0012".
std::string frameEnding(int32_t frame);

// Replaces the file at `path` by what `write` puts, and says so in the read-out. Returns false, with a message that has
// the system's error shown, on failure; the existing file stays whole.
bool saveBeside(ViewerState &viewer, const std::string &path,
                const std::function<std::string(const PutBytes &put)> &write);

// "Save as Bitmap": writes the picture at its own size; replaces an existing file without asking.
// Says so in the read-out. A failure shows a message with the system's error; the existing file stays whole.
void menuSaveBMP_Click(ViewerState &viewer);

// Puts the picture at its own size onto the clipboard, as a bitmap and as a PNG file. A failure shows a message.
void menuCopyClipboard_Click(ViewerState &viewer);
