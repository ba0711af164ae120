// What Follow Changes knows of the open file.
#pragma once

#include "state/input_file.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// A file at one moment; its length is -1 if it could not be read.
struct FileSnapshot {
  FileStamp stamp;
  std::vector<uint8_t> bytes; // empty if the file is too long to be compared by its bytes
};

// The open file and its companion.
inline constexpr size_t kFollowedFiles = 2;

struct Following {
  std::string file;                                 // of the system: the open file, or the disk image that it is on
  std::array<FileStamp, kFollowedFiles> loaded{};   // when the load began
  std::array<FileSnapshot, kFollowedFiles> known{}; // what is shown; filled by the first look after a load
  bool knows = false;                               // `known` is filled
  bool waits = false;                               // the files are looked at when `due` is reached
  uint32_t due = 0;                                 // tick count
  bool triesAgain = false;                          // a refused file is tried once more without a change
};
