// The files in memory on a disk that fails.
#pragma once

#include "base/file_ops.h"

struct DiskFaults {
  int reads = 0; // openings, lengths and reads so far
  int failingRead = 0;
  bool readsStayFailed = false; // all reads after that one fail too
  int outputSteps = 0;          // beginnings, writes and ends so far
  int failingOutputStep = 0;    // ends with "disk is broken"
};

// Of this thread. Steps count from 1; 0: none fails.
DiskFaults &diskFaults();

const FileOps &faultyFiles();
