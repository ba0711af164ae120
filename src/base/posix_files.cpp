// The file system of POSIX systems.
#include "base/file_ops.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A descriptor as a pointer, plus one: descriptor 0 is not nullptr.
// NOLINTNEXTLINE(performance-no-int-to-ptr): never dereferenced, so no optimisation is lost.
FileHandle handleOf(int descriptor) { return reinterpret_cast<FileHandle>(static_cast<intptr_t>(descriptor) + 1); }
int descriptorOf(FileHandle file) { return static_cast<int>(reinterpret_cast<intptr_t>(file) - 1); }

FileHandle openForReading(const char *path) {
  // O_NONBLOCK: opening a pipe does not wait for a writer.
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
    const bool hidden = entry->d_name[0] == '.';
    if (known && !hidden && S_ISREG(status.st_mode)) names.emplace_back(entry->d_name);
  }
  closedir(listing);
  return names;
}

std::string systemWords(int error) { return std::strerror(error); }

// Resolves a symbolic link: the link stays and its target is replaced.
std::string linkTarget(const char *path) {
  char *resolved = realpath(path, nullptr);
  if (resolved == nullptr) return path;
  std::string target = resolved;
  std::free(resolved);
  return target;
}

struct Output {
  int descriptor = -1;
  std::string target;
  std::string temporary; // empty if the target is written in place
};

OutputHandle beginOutput(const char *path, std::string &failure) {
  static std::atomic<unsigned> temporaryCount{0}; // keeps the names of threads apart
  auto output = std::make_unique<Output>();
  output->target = linkTarget(path);
  struct stat old {};
  const bool exists = stat(output->target.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) {
    output->descriptor = open(output->target.c_str(), O_WRONLY | O_CLOEXEC);
  } else {
    // Not derived from the target's name, which may have the maximum length.
    const std::string folder = output->target.substr(0, output->target.find_last_of('/') + 1);
    do {
      output->temporary =
          folder + ".korilan-" + std::to_string(getpid()) + "-" + std::to_string(temporaryCount++) + ".tmp";
      output->descriptor = open(output->temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (output->descriptor < 0 && errno == EEXIST);
  }
  if (output->descriptor < 0) {
    failure = systemWords(errno);
    return nullptr;
  }
  const bool replaces = exists && !output->temporary.empty();
  if (replaces) (void)!fchmod(output->descriptor, old.st_mode & 07777); // keeps the old file's mode if possible
  return output.release();
}

std::string writeOutput(OutputHandle handle, std::span<const uint8_t> bytes) {
  const Output &output = *static_cast<Output *>(handle);
  while (!bytes.empty()) {
    const ssize_t put = write(output.descriptor, bytes.data(), bytes.size());
    if (put < 0 && errno != EINTR) return systemWords(errno);
    if (put > 0) bytes = bytes.subspan(static_cast<size_t>(put));
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
  }
  return error == 0 ? std::string() : systemWords(error);
}

constexpr FileOps kPosixFiles{.openForReading = openForReading,
                              .length = lengthOf,
                              .readAt = readAt,
                              .close = closeFile,
                              .listFolder = listFolder,
                              .beginOutput = beginOutput,
                              .write = writeOutput,
                              .finishOutput = finishOutput};

} // namespace

const FileOps &systemFiles() { return kPosixFiles; }

bool sameFile(const std::string &left, const std::string &right) {
  struct stat of[2]{};
  return stat(left.c_str(), &of[0]) == 0 && stat(right.c_str(), &of[1]) == 0 && of[0].st_dev == of[1].st_dev &&
         of[0].st_ino == of[1].st_ino;
}
