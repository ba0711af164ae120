// A floppy disk as a file: a FAT12 file system, read in place and never written. Paths on it have the separators of
// base/paths.h. Whatever its bytes say, a cluster is read at most once for a file, and what is missing is zeros.
#pragma once

#include "base/disk_layout.h"
#include "base/file_ops.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct DiskImage {
  const FileOps *files = nullptr;
  FileHandle handle = nullptr; // nullptr while closed
  DiskLayout layout = {};
  std::vector<uint8_t> fat; // its first copy
};

// A file on the disk.
struct DiskFile {
  std::vector<uint16_t> clusters;
  int64_t length = 0; // bytes
};

// Closes the old image and opens `path`. Returns false, with the image closed, if it cannot be read or is no disk.
bool openDisk(DiskImage &disk, const FileOps &files, const std::string &path);

void closeDisk(DiskImage &disk);

// Finds a file by its path on the disk, in any case of its letters. Returns false if there is none.
bool findFile(const DiskImage &disk, std::string_view path, DiskFile &file);

// Reads up to `count` bytes at the 0-based `offset`; returns how many the file had.
size_t readFile(const DiskImage &disk, const DiskFile &file, int64_t offset, uint8_t *into, size_t count);

// Names of the files in a folder, which ends in a separator or is empty, in the disk's order.
std::vector<std::string> listFolder(const DiskImage &disk, std::string_view folder);

// Paths of all files of the disk, folder after folder, the root first.
std::vector<std::string> listAllFiles(const DiskImage &disk);
