// The file system as a table, so that a test can simulate a failing disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

// An open file; opaque outside of the table that opened it.
using FileHandle = void *;

// A file that is being written.
using OutputHandle = void *;

struct FileOps {
  // Opens a regular file for reading; other programs can still read, write, rename and delete it. `path` is UTF-8.
  // Returns nullptr for a folder or device, and on failure.
  FileHandle (*openForReading)(const char *path);

  // Current length in bytes; 0 on failure.
  int64_t (*length)(FileHandle file);

  // When the file was last written to, in units of the system; grows with time. 0 on failure.
  int64_t (*writeTime)(FileHandle file);

  // Reads up to `count` bytes at the 0-based `offset`; returns how many were read.
  size_t (*readAt)(FileHandle file, int64_t offset, uint8_t *into, size_t count);

  void (*close)(FileHandle file);

  // Names of the regular files in a folder that are not hidden, in the system's order. `folder` is UTF-8 and ends in a
  // separator; if empty, it is the current folder.
  std::vector<std::string> (*listFolder)(const char *folder);

  // Whether there is anything of that name.
  bool (*exists)(const char *path);

  // The path with its drive and all folders; `path` itself on failure. Asks no disk.
  std::string (*fullPath)(const char *path);

  // Creates a temporary file beside `path`, which finishOutput() renames to `path`: a failure leaves the old file
  // whole. A device or pipe is written in place. Returns nullptr, with the system's message in `failure`, on failure.
  OutputHandle (*beginOutput)(const char *path, std::string &failure);

  // Appends bytes. Returns the system's error message, empty on success.
  std::string (*write)(OutputHandle output, std::span<const uint8_t> bytes);

  // Closes the file. If `keep` is set it replaces `path`; otherwise, and on failure, it is deleted.
  // Returns the system's error message, empty on success.
  std::string (*finishOutput)(OutputHandle output, bool keep);
};

// Receives the next bytes of a file. Returns an error message, empty on success.
using PutBytes = std::function<std::string(std::span<const uint8_t>)>;

// Replaces a file by the bytes that `write` puts. Returns an error message, empty on success; a failure keeps `path`.
std::string replaceFile(const FileOps &files, const std::string &path,
                        const std::function<std::string(const PutBytes &put)> &write);

// The file system of this computer; defined in posix_files.cpp and windows_files.cpp.
const FileOps &systemFiles();

// What the file system knows a path by: the same for every path that leads to one file or folder; if nothing exists
// there, to one name in one folder.
std::string fileIdentity(const std::string &path);

// Removes the files that are being written. A signal handler may call it; the program is to end then.
void removeTemporaries();
