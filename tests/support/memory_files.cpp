#include "support/memory_files.h"

#include <algorithm>
#include <memory>

namespace {

FileHandle openForReading(const char *path) {
  const auto file = memoryDisk().find(path);
  return file != memoryDisk().end() ? &file->second : nullptr;
}

const std::vector<uint8_t> &bytesOf(FileHandle file) { return *static_cast<std::vector<uint8_t> *>(file); }

int64_t lengthOf(FileHandle file) { return static_cast<int64_t>(bytesOf(file).size()); }

size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  const auto &bytes = bytesOf(file);
  if (offset < 0 || offset >= lengthOf(file)) return 0;
  const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
  const size_t given = std::min(count, static_cast<size_t>(bytes.end() - start));
  std::copy_n(start, given, into);
  return given;
}

void closeFile(FileHandle) {}

std::vector<std::string> listFolder(const char *folder) {
  std::vector<std::string> names;
  const std::string prefix = folder;
  for (const auto &[path, bytes] : memoryDisk()) {
    if (path.starts_with(prefix)) names.push_back(path.substr(prefix.size()));
  }
  return names;
}

struct Output {
  std::string path;
  std::vector<uint8_t> bytes;
};

OutputHandle beginOutput(const char *path, std::string &failure) {
  if (!std::string(path).starts_with("locked")) return new Output{path, {}};
  failure = "disk is locked";
  return nullptr;
}

std::string writeOutput(OutputHandle handle, std::span<const uint8_t> bytes) {
  auto &output = *static_cast<Output *>(handle);
  output.bytes.insert(output.bytes.end(), bytes.begin(), bytes.end());
  return "";
}

std::string finishOutput(OutputHandle handle, bool keep) {
  const std::unique_ptr<Output> output(static_cast<Output *>(handle));
  if (keep) memoryDisk()[output->path] = output->bytes;
  return "";
}

constexpr FileOps kMemoryFiles{.openForReading = openForReading,
                               .length = lengthOf,
                               .readAt = readAt,
                               .close = closeFile,
                               .listFolder = listFolder,
                               .beginOutput = beginOutput,
                               .write = writeOutput,
                               .finishOutput = finishOutput};

} // namespace

MemoryDisk &memoryDisk() {
  static thread_local MemoryDisk disk;
  return disk;
}

const FileOps &memoryFiles() { return kMemoryFiles; }
