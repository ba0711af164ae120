// From a path to the shown picture: the steps common to all kinds of file.
#pragma once

#include "state/viewer_state.h"

#include <string_view>

// Window caption without a file; with a file it is kCaptionStart and the file's name.
inline constexpr std::string_view kEmptyCaption = "Korilan";
inline constexpr std::string_view kCaptionStart = "Korilan - ";

// Shown in the picture area while there is no picture.
inline constexpr std::string_view kEmptyText = "Ctrl+O opens a picture, or drop one here";

// Minimum characters of a path; a shorter one has no name before its extension and is ignored.
inline constexpr size_t kMinPathLength = 5;

// Opens `filePath`: first step (names, caption, file), load, last step (shows picture or video). The path of a disk
// image becomes that of its first picture. An unknown extension only sets `fileExtension`.
void openCurrentPath(ViewerState &viewer);

// Resets to the empty window, at start-up and by the Close command.
void resetViewer(ViewerState &viewer);
