// The table of the 43 kinds of file, by extension.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <string_view>

inline constexpr size_t kFileKindCount = 43;

extern const std::array<FileKind, kFileKindCount> kFileKinds;

// The row of exactly this extension, or nullptr.
const FileKind *findFileKind(std::string_view extension);

// Whether a file of that name is opened as a picture or video.
bool isOpened(std::string_view path);

// Stores the row and its type text in the viewer.
void takeKind(ViewerState &viewer, const FileKind &kind);
