#pragma once

// Floppy disks: FAT12 file systems as the machines write them.

#include <string>
#include <vector>

#include "bytes.h"

namespace samples {

struct DiskForm {
  std::uint8_t media = 0xF9;
  int sectors = 1440;
  int sectorsOfFat = 3;
  bool hasBootSector = true;
  int step = 1; // from one cluster of a file to its next; more than 1: fragmented
};

struct FileOnDisk {
  std::string path; // "TITLE.SC5" or, in a folder, "ART/TITLE.SC5"
  Bytes bytes;
};

// The disk with those of the files that it has room for.
Bytes makeDiskImage(const DiskForm &form, const std::vector<FileOnDisk> &files);

} // namespace samples
