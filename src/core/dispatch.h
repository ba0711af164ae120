// From a path to its loader: the common first step, the error line, and the reset to the empty window.
#pragma once

#include "state/viewer_state.h"

#include <string_view>

// Separator of folders in a path. Natively the slash counts as well as the backslash.
#ifdef _WIN32
inline constexpr std::string_view kFolderSeparators = "\\";
#else
inline constexpr std::string_view kFolderSeparators = "\\/";
#endif

// Window caption without a file; with one it is kCaptionStart and the file's name.
inline constexpr std::string_view kEmptyCaption = "Korilan";
inline constexpr std::string_view kCaptionStart = "Korilan - ";

// Characters of a path that can name a file of a known kind; a shorter one is ignored.
inline constexpr size_t kShortestPath = 5;

// Loads `filePath` by its extension. An unknown extension only leaves its name in `fileExtension`.
void openCurrentPath(ViewerState &viewer);

// First step of every loader: names and caption, then the file is opened for reading. When it cannot be opened the
// error line is shown and false returned; the loader ends.
bool openFileForReading(ViewerState &viewer);

// Shows that the current file is not what its extension says. Nothing else changes.
void reportNotValid(ViewerState &viewer);

// Shows that the picture needs more memory than there is.
void reportNoMemory(ViewerState &viewer);

// Back to the empty window, at start-up and by the Close command.
void resetViewer(ViewerState &viewer);
