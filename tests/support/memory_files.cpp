#include "support/memory_files.h"

#include <algorithm>
#include <memory>

namespace {

using File = MemoryDisk::value_type; // path and bytes

bool readFails() {
  const DiskFaults &faults = diskFaults();
  const int read = ++diskFaults().reads;
  return faults.failingRead != 0 && (faults.readsStayFailed ? read >= faults.failingRead : read == faults.failingRead);
}

FileHandle openForReading(const char *path) {
  const auto file = memoryDisk().find(path);
  return file == memoryDisk().end() || readFails() ? nullptr : &*file;
}

int64_t lengthOf(FileHandle file) { return readFails() ? 0 : std::ssize(static_cast<File *>(file)->second); }

// Another time for other bytes.
int64_t writeTimeOf(FileHandle file) {
  const auto &bytes = static_cast<File *>(file)->second;
  const std::string_view text(reinterpret_cast<const char *>(bytes.data()), bytes.size());
  return static_cast<int64_t>(std::hash<std::string_view>{}(text));
}

// A read that fails has given the half of it.
size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  std::span<const uint8_t> bytes = static_cast<File *>(file)->second;
  bytes = bytes.subspan(std::min(bytes.size(), static_cast<size_t>(offset)));
  count = std::min(readFails() ? count / 2 : count, bytes.size());
  std::copy_n(bytes.begin(), count, into);
  return count;
}

std::vector<std::string> listFolder(const char *folder) {
  std::vector<std::string> names;
  for (const auto &[path, bytes] : memoryDisk()) {
    if (path.starts_with(folder)) names.push_back(path.substr(std::string_view(folder).size()));
  }
  return names;
}

std::string writeOutput(OutputHandle output, std::span<const uint8_t> more) {
  auto &bytes = static_cast<File *>(output)->second;
  bytes.insert(bytes.end(), more.begin(), more.end());
  return "";
}

std::string finishOutput(OutputHandle handle, bool keep) {
  const std::unique_ptr<File> output(static_cast<File *>(handle));
  if (keep) memoryDisk()[output->first] = output->second;
  return "";
}

} // namespace

MemoryDisk &memoryDisk() {
  static thread_local MemoryDisk disk;
  return disk;
}

DiskFaults &diskFaults() {
  static thread_local DiskFaults faults;
  return faults;
}

const FileOps &memoryFiles() {
  static constexpr FileOps kFiles{
      .openForReading = openForReading,
      .length = lengthOf,
      .writeTime = writeTimeOf,
      .readAt = readAt,
      .close = [](FileHandle) {},
      .listFolder = listFolder,
      .exists = [](const char *path) { return memoryDisk().contains(path); },
      .fullPath = [](const char *path) { return std::string(path); },
      .beginOutput = [](const char *path, std::string &) -> OutputHandle { return new File(path, {}); },
      .write = writeOutput,
      .finishOutput = finishOutput};
  return kFiles;
}
