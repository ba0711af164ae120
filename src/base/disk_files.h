// Files on disk images, beside those of the system: "GAMES.DSK\ART\TITLE.SC5".
#pragma once

#include "base/file_ops.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The file system of this computer, in which a disk image is a folder as well. It is only read.
const FileOps &filesWithDisks();

// Whether a file of that name is opened as a disk image.
bool isDiskImageName(std::string_view path);

// The same, and it is no folder.
bool isDiskImage(const std::string &path);

// How much of a path is that of a disk image, with the separator behind it; 0 if it leads to no place on one.
size_t diskLength(std::string_view path);

// The system's file that holds a file: its disk image, or itself.
std::string systemFileOf(const std::string &path);

// Why filesWithDisks() refuses to open a path; empty if it does not.
std::string openFailure(const std::string &path);

// Paths below the image of all files on it, folder after folder; nullopt if it is no disk.
std::optional<std::vector<std::string>> listDiskImage(const std::string &image);

// Where what is made of a file is saved, but for its extension: beside it; for a file on a disk beside the image, with
// the path in the name: "GAMES ART TITLE.SC5".
std::string savingPath(const std::string &path);
