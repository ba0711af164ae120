#include "base/memory_files.h"

#include "base/buffers.h"
#include "base/paths.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>
#include <utility>

namespace {

using Contents = std::shared_ptr<const std::vector<uint8_t>>; // shared with those who have the file open

struct MemoryFiles {
  std::mutex mutex;
  std::map<std::string, Contents> contents; // by path
};

// FileOps has no context, so all tables of memory files are one.
MemoryFiles &all() {
  static MemoryFiles files;
  return files;
}

Contents contentsOf(const char *path) {
  const std::lock_guard lock(all().mutex);
  const auto file = all().contents.find(path);
  return file != all().contents.end() ? file->second : nullptr;
}

const std::vector<uint8_t> &bytesOf(FileHandle file) { return **static_cast<Contents *>(file); }

FileHandle openForReading(const char *path) {
  Contents contents = contentsOf(path);
  return contents != nullptr ? new Contents(std::move(contents)) : nullptr;
}

size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  const std::vector<uint8_t> &bytes = bytesOf(file);
  const size_t start = std::min(static_cast<size_t>(offset), bytes.size());
  const size_t given = std::min(count, bytes.size() - start);
  std::copy_n(bytes.data() + start, given, into);
  return given;
}

std::vector<std::string> listFolder(const char *folder) {
  const std::string_view start = folder;
  std::vector<std::string> names;
  const std::lock_guard lock(all().mutex);
  for (const auto &[path, contents] : all().contents) {
    if (folderLength(path) == start.size() && path.starts_with(start)) names.push_back(path.substr(start.size()));
  }
  return names;
}

} // namespace

void putMemoryFile(const std::string &path, std::vector<uint8_t> &&bytes) {
  auto contents = std::make_shared<const std::vector<uint8_t>>(std::move(bytes));
  const std::lock_guard lock(all().mutex);
  all().contents.insert_or_assign(path, std::move(contents));
}

void removeMemoryFile(const std::string &path) {
  const std::lock_guard lock(all().mutex);
  all().contents.erase(path);
}

const FileOps &memoryFileOps() {
  static constexpr FileOps kFiles{.openForReading = openForReading,
                                  .length = [](FileHandle file) { return int64_t{std::ssize(bytesOf(file))}; },
                                  .writeTime = [](FileHandle) { return int64_t{0}; },
                                  .readAt = readAt,
                                  .close = [](FileHandle file) { delete static_cast<Contents *>(file); },
                                  .listFolder = listFolder,
                                  .exists = [](const char *path) { return contentsOf(path) != nullptr; },
                                  .fullPath = [](const char *path) { return std::string(path); },
                                  .beginOutput = nullptr,
                                  .write = nullptr,
                                  .finishOutput = nullptr};
  return kFiles;
}

bool readUpTo(size_t most, const ReadBytes &read, std::vector<uint8_t> &bytes) {
  constexpr size_t kFirstBytes = size_t{1} << 16;
  bytes.clear();
  size_t given = 0;
  for (size_t more = 1; more > 0 && given < most; given += more) {
    if (given == bytes.size()) {
      const size_t room = std::min(most, std::max(kFirstBytes, 2 * given));
      if (!reserve(bytes, room)) return false;
      bytes.resize(room);
    }
    more = read(std::span(bytes).subspan(given));
  }
  bytes.resize(given);
  return true;
}
