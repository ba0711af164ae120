// The file system as a table, so that a test can stand in for a disk that fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// An open file; only the table that opened it knows what the pointer means.
using FileHandle = void *;

// A file that is being written.
using OutputHandle = void *;

struct FileOps {
  // Opens an ordinary file for reading; other programs may go on to read, rewrite, rename and delete it.
  // `path` is UTF-8. Returns nullptr for what cannot be opened and for folders and devices.
  FileHandle (*openForReading)(const char *path);

  // Present length in bytes; 0 when it cannot be told.
  int64_t (*length)(FileHandle file);

  // Reads up to `count` bytes at the 0-based `offset`; returns how many bytes the file gave.
  size_t (*readAt)(FileHandle file, int64_t offset, uint8_t *into, size_t count);

  void (*close)(FileHandle file);

  // Names of the ordinary files of a folder, in the order that the system lists them. `folder` is UTF-8 and ends in a
  // separator; an empty one is the current folder.
  std::vector<std::string> (*listFolder)(const char *folder);

  // Begins a new file beside `path` which finishOutput() puts in the place of `path`, so that a failure leaves the old
  // file whole. What is no ordinary file (a device, a pipe) is written in place.
  // Returns nullptr, and the system's own words in `failure`, when that fails.
  OutputHandle (*beginOutput)(const char *path, std::string &failure);

  // Appends bytes. Returns an empty text, or the system's own words for what went wrong.
  std::string (*write)(OutputHandle output, std::span<const uint8_t> bytes);

  // Closes the file; where `keep` is set it takes its place, otherwise, and after a failure, it is removed.
  // Returns an empty text, or the system's own words for what went wrong.
  std::string (*finishOutput)(OutputHandle output, bool keep);
};

// Writes a whole file. Returns an empty text, or the system's own words for what went wrong; the old file is then
// whole.
std::string replaceFile(const FileOps &files, const std::string &path, std::span<const uint8_t> bytes);

// The file system of this computer. Both are defined once for each system: headless/posix_files.cpp,
// shell/windows_files.cpp.
const FileOps &systemFiles();

// Whether both UTF-8 paths lead to one file or folder, by whatever way; false where either does not exist.
bool sameFile(const std::string &left, const std::string &right);
