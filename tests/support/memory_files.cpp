#include "support/memory_files.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr const char *kFailure = "disk is broken";

using Output = std::pair<std::string, std::vector<uint8_t>>; // path and bytes so far

std::span<const uint8_t> bytesOf(FileHandle file) { return *static_cast<std::vector<uint8_t> *>(file); }

bool readFails() {
  const DiskFaults &faults = diskFaults();
  const int read = ++diskFaults().reads;
  return faults.failingRead != 0 && (faults.readsStayFailed ? read >= faults.failingRead : read == faults.failingRead);
}

bool outputFails() { return ++diskFaults().outputSteps == diskFaults().failingOutputStep; }

FileHandle openForReading(const char *path) {
  const auto file = memoryDisk().find(path);
  return file == memoryDisk().end() || readFails() ? nullptr : &file->second;
}

int64_t lengthOf(FileHandle file) { return readFails() ? 0 : static_cast<int64_t>(bytesOf(file).size()); }

// A read that fails has given the half of it.
size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  const auto bytes = bytesOf(file);
  const auto start = std::min(bytes.size(), static_cast<size_t>(offset));
  count = std::min(readFails() ? count / 2 : count, bytes.size() - start);
  std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(start), count, into);
  return count;
}

std::vector<std::string> listFolder(const char *folder) {
  std::vector<std::string> names;
  const std::string prefix = folder;
  for (const auto &[path, bytes] : memoryDisk()) {
    if (path.starts_with(prefix)) names.push_back(path.substr(prefix.size()));
  }
  return names;
}

OutputHandle beginOutput(const char *path, std::string &failure) {
  if (!outputFails()) return new Output{path, {}};
  failure = kFailure;
  return nullptr;
}

std::string writeOutput(OutputHandle output, std::span<const uint8_t> more) {
  if (outputFails()) return kFailure;
  std::vector<uint8_t> &bytes = static_cast<Output *>(output)->second;
  bytes.insert(bytes.end(), more.begin(), more.end());
  return "";
}

std::string finishOutput(OutputHandle handle, bool keep) {
  const std::unique_ptr<Output> output(static_cast<Output *>(handle));
  if (outputFails()) return kFailure;
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
  static constexpr FileOps kFiles{openForReading, lengthOf,    readAt,      [](FileHandle) {},
                                  listFolder,     beginOutput, writeOutput, finishOutput};
  return kFiles;
}
