// Fuzz target: a disk image: all that is on it is listed and read.
#include "base/disk_image.h"
#include "support/memory_files.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  constexpr size_t kFilesRead = 50;
  memoryDisk()["d"].assign(data, data + size);
  DiskImage disk;
  if (!openDisk(disk, memoryFiles(), "d")) return 0;
  std::vector<std::string> paths = listAllFiles(disk);
  paths.resize(std::min(paths.size(), kFilesRead));
  std::vector<uint8_t> bytes(4000);
  for (const std::string &path : paths) {
    DiskFile file;
    if (!findFile(disk, path, file)) std::abort();
    for (int64_t at = 0; at < file.length; at += std::max<int64_t>(1, file.length / 5)) {
      const size_t given = readFile(disk, file, at, bytes.data(), bytes.size());
      if (given != static_cast<size_t>(std::min<int64_t>(file.length - at, std::ssize(bytes)))) std::abort();
    }
  }
  closeDisk(disk);
  return 0;
}
