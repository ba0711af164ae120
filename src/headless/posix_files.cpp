// The file system of POSIX systems.
#include "core/file_ops.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A descriptor as a pointer; one higher, so that descriptor 0 is no nullptr.
FileHandle handleOf(int descriptor) { return reinterpret_cast<FileHandle>(static_cast<intptr_t>(descriptor) + 1); }
int descriptorOf(FileHandle file) { return static_cast<int>(reinterpret_cast<intptr_t>(file) - 1); }

FileHandle openForReading(const char *path) {
  // Without O_NONBLOCK the opening of a pipe would wait for a writer.
  const int descriptor = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  struct stat status {};
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) return handleOf(descriptor);
  close(descriptor);
  return nullptr;
}

int64_t lengthOf(FileHandle file) {
  struct stat status {};
  return fstat(descriptorOf(file), &status) == 0 ? status.st_size : 0;
}

size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  size_t given = 0;
  while (given < count) {
    const ssize_t got =
        pread(descriptorOf(file), into + given, count - given, static_cast<off_t>(offset) + static_cast<off_t>(given));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    given += static_cast<size_t>(got);
  }
  return given;
}

void closeFile(FileHandle file) { close(descriptorOf(file)); }

std::vector<std::string> listFolder(const char *folder) {
  std::vector<std::string> names;
  DIR *listing = opendir(*folder == '\0' ? "." : folder);
  if (listing == nullptr) return names;
  while (const dirent *entry = readdir(listing)) {
    struct stat status {};
    const bool known = fstatat(dirfd(listing), entry->d_name, &status, 0) == 0;
    if (known && S_ISREG(status.st_mode)) names.emplace_back(entry->d_name);
  }
  closedir(listing);
  return names;
}

std::string systemWords(int error) { return std::strerror(error); }

// Writes all bytes and closes; returns 0 or the error number.
int writeAndClose(int descriptor, std::span<const uint8_t> bytes) {
  int error = 0;
  while (!bytes.empty() && error == 0) {
    const ssize_t put = write(descriptor, bytes.data(), bytes.size());
    if (put >= 0) {
      bytes = bytes.subspan(static_cast<size_t>(put));
    } else if (errno != EINTR) {
      error = errno;
    }
  }
  if (close(descriptor) != 0 && error == 0) error = errno;
  return error;
}

// Follows a symbolic link to the file that it stands for, so that the link itself stays.
std::string linkTarget(const char *path) {
  char *resolved = realpath(path, nullptr);
  if (resolved == nullptr) return path;
  std::string target = resolved;
  std::free(resolved);
  return target;
}

std::string replaceFile(const char *path, std::span<const uint8_t> bytes) {
  static std::atomic<unsigned> temporaryCount{0}; // only makes names differ between threads
  const std::string target = linkTarget(path);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) {
    const int descriptor = open(target.c_str(), O_WRONLY | O_CLOEXEC);
    const int error = descriptor < 0 ? errno : writeAndClose(descriptor, bytes);
    return error == 0 ? std::string() : systemWords(error);
  }

  // A short name of its own: the target's name may already be as long as names can be.
  const std::string folder = target.substr(0, target.find_last_of('/') + 1);
  std::string temporary;
  int descriptor = -1;
  do {
    temporary = folder + ".korilan-" + std::to_string(getpid()) + "-" + std::to_string(temporaryCount++) + ".tmp";
    descriptor = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EEXIST);
  if (descriptor < 0) return systemWords(errno);

  if (exists) (void)!fchmod(descriptor, old.st_mode & 07777); // keeps the old file's rights where it can
  int error = writeAndClose(descriptor, bytes);
  if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0) error = errno;
  if (error == 0) return {};
  unlink(temporary.c_str());
  return systemWords(error);
}

constexpr FileOps kPosixFiles{.openForReading = openForReading,
                              .length = lengthOf,
                              .readAt = readAt,
                              .close = closeFile,
                              .listFolder = listFolder,
                              .replaceFile = replaceFile};

} // namespace

const FileOps &systemFiles() { return kPosixFiles; }
