#include "base/disk_files.h"

#include "base/disk_image.h"
#include "base/folders.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <memory>

namespace {

struct OpenFile {
  FileHandle system = nullptr; // nullptr: on a disk
  DiskImage disk = {};
  DiskFile file = {};
};

OpenFile &openFileOf(FileHandle file) { return *static_cast<OpenFile *>(file); }

// Without the separator at its end.
std::string imageOf(std::string_view path, size_t diskEnd) { return std::string(path.substr(0, diskEnd - 1)); }

FileHandle openForReading(const char *path) {
  auto file = std::make_unique<OpenFile>();
  const std::string_view text = path;
  const size_t diskEnd = diskLength(text);
  if (diskEnd == 0) {
    file->system = systemFiles().openForReading(path);
    return file->system != nullptr ? file.release() : nullptr;
  }
  if (!openDisk(file->disk, systemFiles(), imageOf(text, diskEnd))) return nullptr;
  if (findFile(file->disk, text.substr(diskEnd), file->file)) return file.release();
  closeDisk(file->disk);
  return nullptr;
}

int64_t lengthOf(FileHandle handle) {
  const OpenFile &open = openFileOf(handle);
  return open.system != nullptr ? systemFiles().length(open.system) : open.file.length;
}

int64_t writeTimeOf(FileHandle handle) {
  const OpenFile &open = openFileOf(handle);
  return systemFiles().writeTime(open.system != nullptr ? open.system : open.disk.handle);
}

size_t readAt(FileHandle handle, int64_t offset, uint8_t *into, size_t count) {
  const OpenFile &open = openFileOf(handle);
  if (open.system != nullptr) return systemFiles().readAt(open.system, offset, into, count);
  return readFile(open.disk, open.file, offset, into, count);
}

void closeFile(FileHandle handle) {
  const std::unique_ptr<OpenFile> open(&openFileOf(handle));
  if (open->system != nullptr) systemFiles().close(open->system);
  closeDisk(open->disk);
}

std::vector<std::string> listFilesOf(const char *folder) {
  const std::string_view text = folder;
  const size_t diskEnd = diskLength(text);
  DiskImage disk;
  if (diskEnd == 0 || !openDisk(disk, systemFiles(), imageOf(text, diskEnd))) return systemFiles().listFolder(folder);
  std::vector<std::string> names = listFolder(disk, text.substr(diskEnd));
  closeDisk(disk);
  return names;
}

std::string fullPathOf(const char *path) {
  const std::string_view text = path;
  const size_t diskEnd = diskLength(text);
  if (diskEnd == 0) return systemFiles().fullPath(path);
  const std::string image = systemFiles().fullPath(imageOf(text, diskEnd).c_str());
  return asFolder(image) + std::string(text.substr(diskEnd)); // the system may take names on the disk for devices
}

} // namespace

const FileOps &filesWithDisks() {
  static const FileOps files = [] {
    FileOps layered = systemFiles();
    layered.openForReading = openForReading;
    layered.length = lengthOf;
    layered.writeTime = writeTimeOf;
    layered.readAt = readAt;
    layered.close = closeFile;
    layered.listFolder = listFilesOf;
    layered.fullPath = fullPathOf;
    return layered;
  }();
  return files;
}

bool isDiskImageName(std::string_view path) {
  constexpr std::array<std::string_view, 5> kExtensions{".DSK", ".DI1", ".DI2", ".720", ".360"};
  const std::string extension = upperCased(lastCharacters(path, kExtensionLength));
  return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

bool isDiskImage(const std::string &path) { return isDiskImageName(path) && !isFolder(path); }

// "A.DSK\..\B.SC5" is a file of Windows, and "A.DSK\B.SC5" may be a name elsewhere: what the system knows is its own.
size_t diskLength(std::string_view path) {
  size_t end = path.find_first_of(kFolderSeparators);
  for (; end != std::string_view::npos; end = path.find_first_of(kFolderSeparators, end + 1)) {
    const std::string start(path.substr(0, end));
    if (!isDiskImage(start) || !systemFiles().exists(start.c_str())) continue;
    const bool isPlace = end + 1 == path.size();
    return isPlace || !systemFiles().exists(std::string(path).c_str()) ? end + 1 : 0;
  }
  return 0;
}

std::string systemFileOf(const std::string &path) {
  const size_t diskEnd = diskLength(path);
  return diskEnd == 0 ? path : imageOf(path, diskEnd);
}

std::string openFailure(const std::string &path) {
  const std::string holder = systemFileOf(path);
  std::string failure = readFailure(holder);
  if (holder == path || !failure.empty()) return failure;
  const FileHandle file = openForReading(path.c_str());
  if (file == nullptr) return missingFileWords();
  closeFile(file);
  return "";
}

std::optional<std::vector<std::string>> listDiskImage(const std::string &image) {
  DiskImage disk;
  if (!openDisk(disk, systemFiles(), image)) return std::nullopt;
  std::vector<std::string> paths = listAllFiles(disk);
  closeDisk(disk);
  return paths;
}

std::string savingPath(const std::string &path) {
  const size_t diskEnd = diskLength(path);
  if (diskEnd == 0) return path;
  std::string inner = path.substr(diskEnd);
  for (char &letter : inner) {
    if (kFolderSeparators.find(letter) != std::string_view::npos) letter = ' ';
  }
  return path.substr(0, diskEnd - 1 - kExtensionLength) + " " + inner;
}
