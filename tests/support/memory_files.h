// Files that exist only in memory, behind the viewer's own table of file functions.
#pragma once

#include "base/file_ops.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

using MemoryDisk = std::map<std::string, std::vector<uint8_t>>;

// The disk that memoryFiles() stands for in this thread.
MemoryDisk &memoryDisk();

// Opens only what memoryDisk() holds; writing a path that begins with "locked" fails with "disk is locked".
const FileOps &memoryFiles();
