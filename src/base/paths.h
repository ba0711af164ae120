// Paths as UTF-8 text: folder, name, extension.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Folder separators of a path. POSIX accepts the backslash as well.
#ifdef _WIN32
inline constexpr std::string_view kFolderSeparators = "\\";
#else
inline constexpr std::string_view kFolderSeparators = "\\/";
#endif

inline constexpr size_t kExtensionLength = 4; // with the dot

// Length of the folder at the start of `path`, with its separator; 0 if there is none.
size_t folderLength(std::string_view path);

// The path of a folder with a separator at its end.
std::string asFolder(std::string_view path);

// `path` without its folder.
std::string_view fileNameOf(std::string_view path);

// `path` with its last three characters, the letters of its extension, replaced by `letters`.
std::string withLastLetters(std::string_view path, std::string_view letters);

// The path with the system's separators: on Windows each slash becomes a backslash.
std::string systemPath(std::string path);
