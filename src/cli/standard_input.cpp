#include "cli/standard_input.h"

#include "base/buffers.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

constexpr size_t kMaxBytes = size_t{1} << 30;
constexpr size_t kFirstBytes = size_t{1} << 16;

// The program has one standard input, and FileOps has no context.
struct MemoryFile {
  std::string name;
  std::vector<uint8_t> bytes;
};
MemoryFile input;

FileHandle openForReading(const char *path) { return path == input.name ? &input : nullptr; }

int64_t length(FileHandle) { return std::ssize(input.bytes); }

size_t readAt(FileHandle, int64_t offset, uint8_t *into, size_t count) {
  const size_t start = std::min(static_cast<size_t>(offset), input.bytes.size());
  const size_t given = std::min(count, input.bytes.size() - start);
  std::copy_n(input.bytes.data() + start, given, into);
  return given;
}

void closeFile(FileHandle) {}

std::vector<std::string> listFolder(const char *) { return {}; }

} // namespace

std::string readStandardInput(const std::string &name) {
  input = {.name = name, .bytes = {}};
  std::vector<uint8_t> &bytes = input.bytes;
  size_t given = 0;
  for (size_t room = kFirstBytes; given == bytes.size() && given <= kMaxBytes;
       room = std::min(2 * room, kMaxBytes + 1)) {
    if (!reserve(bytes, room)) return "there is not enough memory";
    bytes.resize(room);
    given += std::fread(bytes.data() + given, 1, room - given, stdin);
  }
  bytes.resize(given);
  if (given > kMaxBytes) return "longer than 1 GiB";
  return std::ferror(stdin) != 0 ? std::strerror(errno) : "";
}

const FileOps &standardInputFiles() {
  static constexpr FileOps kFiles{.openForReading = openForReading,
                                  .length = length,
                                  .writeTime = [](FileHandle) { return int64_t{0}; },
                                  .readAt = readAt,
                                  .close = closeFile,
                                  .listFolder = listFolder,
                                  .exists = [](const char *path) { return path == input.name; },
                                  .fullPath = [](const char *path) { return std::string(path); },
                                  .beginOutput = nullptr,
                                  .write = nullptr,
                                  .finishOutput = nullptr};
  return kFiles;
}
