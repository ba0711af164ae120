// FileOps for Windows. Only the W functions accept paths of more than 260 characters.
#include "base/file_ops.h"
#include "base/windows_text.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The byte count of a call is a DWORD.
constexpr size_t kMaxTransfer = size_t{1} << 30;

FileHandle openForReading(const char *path) {
  const HANDLE file = CreateFileW(toUtf16(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return nullptr;
  if (GetFileType(file) != FILE_TYPE_DISK) {
    CloseHandle(file);
    return nullptr;
  }
  return file;
}

int64_t length(FileHandle file) {
  LARGE_INTEGER size{};
  return GetFileSizeEx(file, &size) ? size.QuadPart : 0;
}

size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  size_t done = 0;
  while (done < count) {
    const auto position = static_cast<uint64_t>(offset) + done;
    OVERLAPPED from{};
    from.Offset = static_cast<DWORD>(position);
    from.OffsetHigh = static_cast<DWORD>(position >> 32);
    const auto wanted = static_cast<DWORD>(std::min(count - done, kMaxTransfer));
    DWORD given = 0;
    if (!ReadFile(file, into + done, wanted, &given, &from) || given == 0) break;
    done += given;
  }
  return done;
}

void closeFile(FileHandle file) { CloseHandle(file); }

constexpr DWORD kNotListed = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

std::vector<std::string> listFolder(const char *folder) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW found{};
  const HANDLE listing = FindFirstFileW(toUtf16(std::string(folder) + "*").c_str(), &found);
  if (listing == INVALID_HANDLE_VALUE) return names;
  do {
    if ((found.dwFileAttributes & kNotListed) == 0) names.push_back(toUtf8(found.cFileName));
  } while (FindNextFileW(listing, &found));
  FindClose(listing);
  return names;
}

// The system's message for an error number.
std::string errorText(DWORD error) {
  char buffer[512];
  const DWORD size = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                    buffer, sizeof buffer, nullptr);
  std::string text(buffer, size);
  text.erase(text.find_last_not_of("\r\n") + 1);
  return text.empty() ? "Error " + std::to_string(error) : text;
}

struct Output {
  HANDLE file = INVALID_HANDLE_VALUE;
  std::string target;
  std::string temporary; // empty if the target is written in place
};

// Opens a device or pipe for writing; INVALID_HANDLE_VALUE for a regular file or a missing one.
HANDLE openDevice(const char *path) {
  const HANDLE device = CreateFileW(toUtf16(path).c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (device == INVALID_HANDLE_VALUE) return device;
  if (GetFileType(device) == FILE_TYPE_DISK) {
    CloseHandle(device);
    return INVALID_HANDLE_VALUE;
  }
  return device;
}

// Creates a file in the folder of `path` and stores its path in `temporaryPath`.
HANDLE createTemporary(const std::string &path, std::string &temporaryPath) {
  static std::atomic<unsigned> serial{0};
  constexpr int kAttempts = 100;
  const size_t folderEnd = path.find_last_of("\\/:");
  const std::string folder = folderEnd == std::string::npos ? "" : path.substr(0, folderEnd + 1);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    temporaryPath = folder + "~" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(serial++) + ".tmp";
    const HANDLE file = CreateFileW(toUtf16(temporaryPath).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return file;
  }
  return INVALID_HANDLE_VALUE;
}

OutputHandle beginOutput(const char *path, std::string &failure) {
  auto output = std::make_unique<Output>();
  output->target = path;
  output->file = openDevice(path);
  if (output->file == INVALID_HANDLE_VALUE) output->file = createTemporary(path, output->temporary);
  if (output->file != INVALID_HANDLE_VALUE) return output.release();
  failure = errorText(GetLastError());
  return nullptr;
}

std::string writeOutput(OutputHandle handle, std::span<const uint8_t> bytes) {
  const Output &output = *static_cast<Output *>(handle);
  while (!bytes.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMaxTransfer));
    DWORD written = 0;
    if (!WriteFile(output.file, bytes.data(), wanted, &written, nullptr)) return errorText(GetLastError());
    if (written == 0) return errorText(ERROR_WRITE_FAULT);
    bytes = bytes.subspan(written);
  }
  return {};
}

std::string finishOutput(OutputHandle handle, bool keep) {
  const std::unique_ptr<Output> output(static_cast<Output *>(handle));
  DWORD error = CloseHandle(output->file) ? ERROR_SUCCESS : GetLastError();
  if (!output->temporary.empty()) {
    const std::wstring temporary = toUtf16(output->temporary);
    const bool placed = keep && error == ERROR_SUCCESS;
    if (placed && !MoveFileExW(temporary.c_str(), toUtf16(output->target).c_str(), MOVEFILE_REPLACE_EXISTING)) {
      error = GetLastError();
    }
    if (!placed || error != ERROR_SUCCESS) DeleteFileW(temporary.c_str());
  }
  return error == ERROR_SUCCESS ? std::string() : errorText(error);
}

} // namespace

const FileOps &systemFiles() {
  static constexpr FileOps kFiles = {
      .openForReading = openForReading,
      .length = length,
      .readAt = readAt,
      .close = closeFile,
      .listFolder = listFolder,
      .beginOutput = beginOutput,
      .write = writeOutput,
      .finishOutput = finishOutput,
  };
  return kFiles;
}

bool sameFile(const std::string &left, const std::string &right) {
  const auto identify = [](const std::string &path, BY_HANDLE_FILE_INFORMATION &identity) {
    // No access rights needed to query; FILE_FLAG_BACKUP_SEMANTICS opens folders too.
    const HANDLE file =
        CreateFileW(toUtf16(path).c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool known = GetFileInformationByHandle(file, &identity);
    CloseHandle(file);
    return known;
  };
  BY_HANDLE_FILE_INFORMATION of[2]{};
  return identify(left, of[0]) && identify(right, of[1]) && of[0].dwVolumeSerialNumber == of[1].dwVolumeSerialNumber &&
         of[0].nFileIndexHigh == of[1].nFileIndexHigh && of[0].nFileIndexLow == of[1].nFileIndexLow;
}
