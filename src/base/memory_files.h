// Files that exist only in memory, behind the table of file functions, and how a stream becomes one.
#pragma once

#include "base/file_ops.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

// Adds a file, or replaces the one of that path; who has the old one open still reads that. All threads see the same
// files.
void putMemoryFile(const std::string &path, std::vector<uint8_t> &&bytes);

// Who has the file open still reads it.
void removeMemoryFile(const std::string &path);

// The file system of these files. Paths are compared letter by letter; nothing can be written.
const FileOps &memoryFileOps();

// Fills the span from its start and returns how many bytes it has; 0 at the end.
using ReadBytes = std::function<size_t(std::span<uint8_t> into)>;

// Sets `bytes` to what `read` gives until its end, but at most `most` bytes. Returns false if there is not enough
// memory.
bool readUpTo(size_t most, const ReadBytes &read, std::vector<uint8_t> &bytes);
