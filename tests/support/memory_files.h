// Files that exist only in memory, behind the viewer's own table of file functions, on a disk that can fail.
#pragma once

#include "base/file_ops.h"

#include <map>

using MemoryDisk = std::map<std::string, std::vector<uint8_t>>;

struct DiskFaults {
  int reads = 0;                // openings, lengths and reads so far
  int failingRead = 0;          // number of the read that fails; 0: none
  bool readsStayFailed = false; // all reads after that one fail too
};

// The disk that memoryFiles() is in this thread.
MemoryDisk &memoryDisk();
DiskFaults &diskFaults();

const FileOps &memoryFiles();
