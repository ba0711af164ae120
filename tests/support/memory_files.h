// Files that exist only in memory, behind the viewer's own table of file functions, on a disk that can fail.
#pragma once

#include "base/file_ops.h"

#include <map>

using MemoryDisk = std::map<std::string, std::vector<uint8_t>>;

// Steps count from 1; 0: none fails.
struct DiskFaults {
  int reads = 0; // openings, lengths and reads so far
  int failingRead = 0;
  bool readsStayFailed = false; // all reads after that one fail too
  int outputSteps = 0;          // beginnings, writes and ends so far
  int failingOutputStep = 0;    // ends with "disk is broken"
};

// The disk that memoryFiles() stands for in this thread.
MemoryDisk &memoryDisk();
DiskFaults &diskFaults();

const FileOps &memoryFiles();
inline const FileOps &faultyFiles() { return memoryFiles(); }
