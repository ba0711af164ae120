// FileOps for Windows.
#include "base/file_ops.h"
#include "base/folders.h"
#include "base/temporaries.h"
#include "base/windows_text.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>

namespace {

// With the prefix that lifts the limit of 260.
constexpr DWORD kMaxPath = 32768;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The byte count of a call is a DWORD.
constexpr size_t kMaxTransfer = size_t{1} << 30;

std::string fullPath(const char *path) { return toUtf8(fullPathOf(toUtf16(path))); }

// The system's message for an error number.
std::string errorText(DWORD error) {
  wchar_t buffer[512];
  const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                    buffer, std::size(buffer), nullptr);
  std::string text = toUtf8({buffer, size});
  text.erase(text.find_last_not_of("\r\n") + 1);
  return text.empty() ? "Error " + std::to_string(error) : text;
}

// Opens a file of a disk. Returns nullptr, with the message in `failure`, if that fails.
FileHandle openDiskFile(const char *path, std::string &failure) {
  const HANDLE file = CreateFileW(longPath(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    failure = errorText(GetLastError());
    return nullptr;
  }
  if (GetFileType(file) == FILE_TYPE_DISK) return file;
  failure = "Not a regular file";
  CloseHandle(file);
  return nullptr;
}

FileHandle openForReading(const char *path) {
  std::string failure;
  return openDiskFile(path, failure);
}

int64_t length(FileHandle file) {
  LARGE_INTEGER size{};
  return GetFileSizeEx(file, &size) ? size.QuadPart : 0;
}

int64_t writeTime(FileHandle file) {
  FILETIME time{};
  if (!GetFileTime(file, nullptr, nullptr, &time)) return 0;
  return static_cast<int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
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

// Leaves out links to folders, and "." and "..".
bool isListed(const WIN32_FIND_DATAW &found) {
  const DWORD attributes = found.dwFileAttributes;
  if ((attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0) return false;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return true;
  const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                    (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK || found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
  const std::wstring_view name = found.cFileName;
  return !link && name != L"." && name != L"..";
}

bool isThere(const char *path) { return GetFileAttributesW(longPath(path).c_str()) != INVALID_FILE_ATTRIBUTES; }

Temporaries<wchar_t> temporaries;

struct Output {
  HANDLE file = INVALID_HANDLE_VALUE;
  std::wstring target;
  std::wstring temporary; // empty if the target is written in place
};

// What a path leads to, by whatever links. INVALID_HANDLE_VALUE if nothing is there. No access rights are needed to
// query; FILE_FLAG_BACKUP_SEMANTICS opens folders too.
HANDLE openForQuery(const std::wstring &path) {
  return CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// Follows a link to the file that it names, so that the link itself stays.
std::wstring linkTarget(const std::wstring &path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const HANDLE file = openForQuery(path);
  if (file == INVALID_HANDLE_VALUE) return path;
  std::wstring target(kMaxPath, L'\0');
  target.resize(GetFinalPathNameByHandleW(file, target.data(), kMaxPath, 0));
  CloseHandle(file);
  return target.empty() ? path : target;
}

// Opens a device or pipe for writing; INVALID_HANDLE_VALUE for a file and if nothing exists there.
HANDLE openDevice(const std::wstring &path) {
  const HANDLE device =
      CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (device == INVALID_HANDLE_VALUE) return device;
  if (GetFileType(device) == FILE_TYPE_DISK) {
    CloseHandle(device);
    return INVALID_HANDLE_VALUE;
  }
  return device;
}

// Creates a file beside the target. It can be deleted while it is open.
void createTemporary(Output &output) {
  static std::atomic<unsigned> serial{0};
  constexpr int kAttempts = 100;
  const std::wstring folder = output.target.substr(0, output.target.find_last_of(L"\\/:") + 1);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    output.temporary =
        folder + L"~" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(serial++) + L".tmp";
    const bool created = temporaries.create(output.temporary.c_str(), [&output] {
      output.file = CreateFileW(output.temporary.c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
      return output.file != INVALID_HANDLE_VALUE;
    });
    if (created || GetLastError() != ERROR_FILE_EXISTS) return;
  }
}

OutputHandle beginOutput(const char *path, std::string &failure) {
  auto output = std::make_unique<Output>();
  output->target = linkTarget(longPath(path));
  const DWORD attributes = GetFileAttributesW(output->target.c_str());
  const bool readOnly = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  output->file = openDevice(output->target);
  if (readOnly) {
    SetLastError(ERROR_ACCESS_DENIED);
  } else if (output->file == INVALID_HANDLE_VALUE) {
    createTemporary(*output);
  }
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
    const bool placed = keep && error == ERROR_SUCCESS;
    if (placed && !MoveFileExW(output->temporary.c_str(), output->target.c_str(), MOVEFILE_REPLACE_EXISTING)) {
      error = GetLastError();
    }
    if (!placed || error != ERROR_SUCCESS) DeleteFileW(output->temporary.c_str());
    temporaries.forget(output->temporary.c_str());
  }
  return error == ERROR_SUCCESS ? std::string() : errorText(error);
}

// As the file system compares names.
std::wstring upperCase(std::wstring name) {
  const int units = static_cast<int>(name.size());
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, name.data(), units, name.data(), units, nullptr, nullptr, 0);
  return name;
}

} // namespace

const FileOps &systemFiles() {
  static constexpr FileOps kFiles = {
      .openForReading = openForReading,
      .length = length,
      .writeTime = writeTime,
      .readAt = readAt,
      .close = closeFile,
      .listFolder = listFiles,
      .exists = isThere,
      .fullPath = fullPath,
      .beginOutput = beginOutput,
      .write = writeOutput,
      .finishOutput = finishOutput,
  };
  return kFiles;
}

std::string fileIdentity(const std::string &path) {
  std::wstring place = linkTarget(longPath(path));
  std::wstring name;
  HANDLE file = openForQuery(place);
  if (file == INVALID_HANDLE_VALUE) {
    const size_t folderEnd = place.find_last_of(L"\\/:") + 1;
    name = L"/" + upperCase(place.substr(folderEnd));
    place.resize(folderEnd);
    file = openForQuery(place.empty() ? L"." : place);
  }
  BY_HANDLE_FILE_INFORMATION known{};
  const bool found = file != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file, &known);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  if (!found) return path;
  return std::to_string(known.dwVolumeSerialNumber) + ":" + std::to_string(known.nFileIndexHigh) + ":" +
         std::to_string(known.nFileIndexLow) + toUtf8(name);
}

void removeTemporaries() {
  temporaries.removeAll([](const wchar_t *path) { DeleteFileW(path); });
}

std::string listEntries(const std::string &folder, std::vector<FolderEntry> &entries) {
  entries.clear();
  WIN32_FIND_DATAW found{};
  const HANDLE listing = FindFirstFileW(longPath(folder + "*").c_str(), &found);
  if (listing == INVALID_HANDLE_VALUE) return errorText(GetLastError());
  do {
    const bool folderEntry = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isListed(found)) entries.push_back({toUtf8(found.cFileName), folderEntry});
  } while (FindNextFileW(listing, &found));
  FindClose(listing);
  return {};
}

bool isFolder(const std::string &path) {
  const DWORD attributes = GetFileAttributesW(longPath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string makeFolder(const std::string &path) {
  if (CreateDirectoryW(longPath(path).c_str(), nullptr)) return {};
  const DWORD error = GetLastError();
  return isFolder(path) ? std::string() : errorText(error);
}

std::string readFailure(const std::string &path) {
  std::string failure;
  if (const FileHandle file = openDiskFile(path.c_str(), failure)) closeFile(file);
  return failure;
}

std::string missingFileWords() { return errorText(ERROR_FILE_NOT_FOUND); }

std::string nameKey(std::string_view name) { return toUtf8(upperCase(toUtf16(name))); }
