#include "web/page_files.h"

#include "base/file_ops.h"
#include "base/folders.h"
#include "web/page_calls.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace {

std::string &room() {
  static std::string text;
  return text;
}

// A number as a pointer; one higher, so that -1 is nullptr.
// NOLINTNEXTLINE(performance-no-int-to-ptr): it points to nothing, so no optimisation is lost.
FileHandle handleOf(int32_t file) { return reinterpret_cast<FileHandle>(file + 1); }
int32_t fileOf(FileHandle handle) { return reinterpret_cast<int32_t>(handle) - 1; }

enum Holding { kNothing, kFile, kFolder };

Holding holds(std::string_view path) { return static_cast<Holding>(pageHolds(path.data(), path.size())); }

FileHandle openForReading(const char *path) { return handleOf(pageOpenFile(path, std::string_view(path).size())); }

int64_t length(FileHandle file) { return pageFileLength(fileOf(file)); }

size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  if (offset > length(file)) return 0;
  return pageReadFile(fileOf(file), static_cast<uint32_t>(offset), into, count);
}

void closeFile(FileHandle file) { pageCloseFile(fileOf(file)); }

std::vector<std::string> listFolder(const char *folder) {
  const size_t bytes = pageListFolder(folder, std::string_view(folder).size());
  std::string_view rest = std::string_view(room()).substr(0, bytes);
  std::vector<std::string> names;
  for (size_t end = rest.find('\0'); end != std::string_view::npos; end = rest.find('\0')) {
    names.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  return names;
}

// A saved file goes to the user's downloads, where the browser gives it a name of its own if there is one already.
OutputHandle beginOutput(const char *path, std::string &) {
  const std::string_view text = path;
  return new std::string(text.substr(text.find_last_of("/\\") + 1));
}

std::string write(OutputHandle, std::span<const uint8_t> bytes) {
  pagePutBytes(bytes.data(), bytes.size());
  return {};
}

std::string finishOutput(OutputHandle output, bool keep) {
  const std::unique_ptr<std::string> name(static_cast<std::string *>(output));
  pageEndFile(name->data(), name->size(), keep ? 1 : 0);
  return {};
}

constexpr FileOps kPageFiles{.openForReading = openForReading,
                             .length = length,
                             .writeTime = [](FileHandle) { return int64_t{0}; },
                             .readAt = readAt,
                             .close = closeFile,
                             .listFolder = listFolder,
                             .exists = [](const char *path) { return holds(path) != kNothing; },
                             .fullPath = [](const char *path) { return std::string(path); },
                             .beginOutput = beginOutput,
                             .write = write,
                             .finishOutput = finishOutput};

} // namespace

const FileOps &systemFiles() { return kPageFiles; }

bool isFolder(const std::string &path) { return holds(path) == kFolder; }

char *textRoom(size_t bytes) {
  room().resize(bytes);
  return room().data();
}

const std::string &roomText() { return room(); }
