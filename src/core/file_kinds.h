// The table of the 43 kinds of file, told apart by extension.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstdint>
#include <string_view>

struct FileKind {
  const char *extension;       // upper case, with the dot
  const char *typeDescription; // as shown; COPY texts end in a blank
  void (*load)(ViewerState &viewer);
  uint8_t linearBitsPerPixel; // depth at which pixels run on across byte bounds from line to line; 0: never
};

inline constexpr size_t kFileKindCount = 43;
inline constexpr size_t kExtensionLength = 4; // with the dot

extern const std::array<FileKind, kFileKindCount> kFileKinds;

// The first row whose extension equals `extension` to the letter, or nullptr.
const FileKind *findFileKind(std::string_view extension);
