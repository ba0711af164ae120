// The file system of POSIX systems.
#include "base/file_ops.h"
#include "base/folders.h"
#include "base/temporaries.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A descriptor as a pointer; one higher, so that descriptor 0 is no nullptr.
// NOLINTNEXTLINE(performance-no-int-to-ptr): it points to nothing, so no optimisation is lost.
FileHandle handleOf(int descriptor) { return reinterpret_cast<FileHandle>(static_cast<intptr_t>(descriptor) + 1); }
int descriptorOf(FileHandle file) { return static_cast<int>(reinterpret_cast<intptr_t>(file) - 1); }

std::string systemWords(int error) { return std::strerror(error); }

// All zero if the system refuses.
struct stat statusOf(int descriptor) {
  struct stat status {};
  fstat(descriptor, &status);
  return status;
}

// Opens a regular file. Returns -1, with the message in `failure`, if that fails.
int openRegularFile(const char *path, std::string &failure) {
  // Without O_NONBLOCK the opening of a pipe would wait for a writer.
  const int descriptor = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) {
    failure = systemWords(errno);
    return -1;
  }
  const mode_t mode = statusOf(descriptor).st_mode;
  if (S_ISREG(mode)) return descriptor;
  failure = S_ISDIR(mode) ? systemWords(EISDIR) : "Not a regular file";
  close(descriptor);
  return -1;
}

FileHandle openForReading(const char *path) {
  std::string failure;
  const int descriptor = openRegularFile(path, failure);
  return descriptor >= 0 ? handleOf(descriptor) : nullptr;
}

int64_t lengthOf(FileHandle file) { return statusOf(descriptorOf(file)).st_size; }

int64_t writeTime(FileHandle file) {
  constexpr int64_t kNanoseconds = 1'000'000'000;
  const timespec time = statusOf(descriptorOf(file)).st_mtim;
  return time.tv_sec * kNanoseconds + time.tv_nsec;
}

// No signal interrupts a read or a write: a handler ends the program.
size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  size_t given = 0;
  while (given < count) {
    const ssize_t got =
        pread(descriptorOf(file), into + given, count - given, static_cast<off_t>(offset) + static_cast<off_t>(given));
    if (got <= 0) break;
    given += static_cast<size_t>(got);
  }
  return given;
}

void closeFile(FileHandle file) { close(descriptorOf(file)); }

bool isThere(const char *path) {
  struct stat status {};
  return lstat(path, &status) == 0;
}

Temporaries<char> temporaries;

size_t folderEnd(const std::string &path) { return path.find_last_of('/') + 1; }

// Follows symbolic links to the file that they name, which need not exist, so that the links themselves stay.
std::string linkTarget(std::string path) {
  constexpr int kMaxLinks = 40;
  std::array<char, PATH_MAX> text;
  for (int links = 0; links < kMaxLinks; ++links) {
    const ssize_t length = readlink(path.c_str(), text.data(), text.size());
    if (length < 0) break;
    const std::string target(text.data(), static_cast<size_t>(length));
    path.resize(target.starts_with('/') ? 0 : folderEnd(path));
    path += target;
  }
  return path;
}

struct Output {
  int descriptor = -1;
  std::string target;
  std::string temporary; // empty if the target is written in place
};

// Creates a file beside the target. A short name of its own: the target's may already be as long as names can be.
void createTemporary(Output &output) {
  static std::atomic<unsigned> serial{0}; // only makes names differ between threads
  const std::string folder = output.target.substr(0, folderEnd(output.target));
  bool created = false;
  do {
    output.temporary = folder + ".korilan-" + std::to_string(getpid()) + "-" + std::to_string(serial++) + ".tmp";
    created = temporaries.create(output.temporary.c_str(), [&output] {
      output.descriptor = open(output.temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      return output.descriptor >= 0;
    });
  } while (!created && errno == EEXIST);
}

OutputHandle beginOutput(const char *path, std::string &failure) {
  auto output = std::make_unique<Output>();
  struct stat old {};
  const bool exists = stat(path, &old) == 0;
  // A link to a pipe may name nothing, as those of open files do.
  output->target = exists && !S_ISREG(old.st_mode) ? path : linkTarget(path);
  if (exists && !S_ISREG(old.st_mode)) {
    output->descriptor = open(output->target.c_str(), O_WRONLY | O_CLOEXEC);
  } else if (!exists || access(output->target.c_str(), W_OK) == 0) {
    createTemporary(*output);
  }
  if (output->descriptor < 0) {
    failure = systemWords(errno);
    return nullptr;
  }
  const bool replaces = exists && !output->temporary.empty();
  if (replaces) (void)!fchmod(output->descriptor, old.st_mode & 07777); // keeps the old file's rights if it can
  return output.release();
}

std::string writeOutput(OutputHandle handle, std::span<const uint8_t> bytes) {
  const Output &output = *static_cast<Output *>(handle);
  while (!bytes.empty()) {
    const ssize_t put = write(output.descriptor, bytes.data(), bytes.size());
    if (put < 0) return systemWords(errno);
    bytes = bytes.subspan(static_cast<size_t>(put));
  }
  return {};
}

std::string finishOutput(OutputHandle handle, bool keep) {
  const std::unique_ptr<Output> output(static_cast<Output *>(handle));
  int error = close(output->descriptor) != 0 ? errno : 0;
  if (!output->temporary.empty()) {
    const bool placed = keep && error == 0;
    if (placed && rename(output->temporary.c_str(), output->target.c_str()) != 0) error = errno;
    if (!placed || error != 0) unlink(output->temporary.c_str());
    temporaries.forget(output->temporary.c_str());
  }
  return error == 0 ? std::string() : systemWords(error);
}

std::string fullPath(const char *path) {
  std::array<char, PATH_MAX> folder;
  if (*path == '/' || getcwd(folder.data(), folder.size()) == nullptr) return path;
  return std::string(folder.data()) + "/" + path;
}

constexpr FileOps kPosixFiles{.openForReading = openForReading,
                              .length = lengthOf,
                              .writeTime = writeTime,
                              .readAt = readAt,
                              .close = closeFile,
                              .listFolder = listFiles,
                              .exists = isThere,
                              .fullPath = fullPath,
                              .beginOutput = beginOutput,
                              .write = writeOutput,
                              .finishOutput = finishOutput};

} // namespace

const FileOps &systemFiles() { return kPosixFiles; }

std::string fileIdentity(const std::string &path) {
  struct stat status {};
  std::string name;
  if (stat(path.c_str(), &status) != 0) {
    const std::string target = linkTarget(path);
    const std::string folder = target.substr(0, folderEnd(target));
    name = "/" + target.substr(folder.size());
    if (stat(folder.empty() ? "." : folder.c_str(), &status) != 0) return path;
  }
  return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino) + name;
}

void removeTemporaries() {
  temporaries.removeAll([](const char *path) { unlink(path); });
}

std::string listEntries(const std::string &folder, std::vector<FolderEntry> &entries) {
  entries.clear();
  DIR *listing = opendir(folder.empty() ? "." : folder.c_str());
  if (listing == nullptr) return systemWords(errno);
  while (const dirent *entry = readdir(listing)) {
    if (entry->d_name[0] == '.') continue;
    struct stat status {}; // stays as it is if the system refuses
    fstatat(dirfd(listing), entry->d_name, &status, AT_SYMLINK_NOFOLLOW);
    if (S_ISDIR(status.st_mode)) entries.push_back({entry->d_name, true});
    if (S_ISLNK(status.st_mode)) fstatat(dirfd(listing), entry->d_name, &status, 0);
    if (S_ISREG(status.st_mode)) entries.push_back({entry->d_name, false});
  }
  closedir(listing);
  return {};
}

bool isFolder(const std::string &path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string makeFolder(const std::string &path) {
  if (mkdir(path.c_str(), 0777) == 0) return {};
  const int error = errno;
  return isFolder(path) ? std::string() : systemWords(error);
}

std::string readFailure(const std::string &path) {
  std::string failure;
  const int descriptor = openRegularFile(path.c_str(), failure);
  if (descriptor >= 0) close(descriptor);
  return failure;
}

std::string missingFileWords() { return systemWords(ENOENT); }

std::string nameKey(std::string_view name) { return std::string(name); }
