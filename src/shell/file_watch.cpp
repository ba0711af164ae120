#include "shell/file_watch.h"

#include "base/windows_text.h"
#include "core/following.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace {

bool watching(const FileWatch &watch) { return watch.folder != INVALID_HANDLE_VALUE; }

// Other computers report changes late or not at all.
bool onNetwork(const std::wstring &folder) {
  std::wstring root(folder.size() + MAX_PATH, L'\0');
  const bool known = GetVolumePathNameW(folder.c_str(), root.data(), static_cast<DWORD>(root.size())) != FALSE;
  return !known || GetDriveTypeW(root.c_str()) == DRIVE_REMOTE;
}

void closeFolder(FileWatch &watch) {
  CloseHandle(watch.folder);
  watch.folder = INVALID_HANDLE_VALUE;
}

void requestChanges(FileWatch &watch) {
  constexpr DWORD kFilter = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_LAST_WRITE |
                            FILE_NOTIFY_CHANGE_SIZE;
  const bool requested = ReadDirectoryChangesW(watch.folder, watch.changes.data(), sizeof watch.changes, FALSE, kFilter,
                                               nullptr, &watch.request, nullptr);
  if (!requested) closeFolder(watch);
}

// Other programs can still rename and delete the folder.
HANDLE openFolder(const std::wstring &path) {
  return CreateFileW(path.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED, nullptr);
}

void openNearestFolder(FileWatch &watch, std::wstring path) {
  for (;;) {
    watch.folder = openFolder(path);
    const size_t end = path.find_last_not_of(L'\\');
    const size_t separator = end == std::wstring::npos ? end : path.rfind(L'\\', end);
    if (watching(watch) || separator == std::wstring::npos) return;
    watch.missing = toUtf8(std::wstring_view(path).substr(separator + 1, end - separator));
    path.resize(separator + 1);
  }
}

void startWatching(FileWatch &watch, const std::string &folderPath) {
  stopWatching(watch);
  watch.folderPath = folderPath;
  const std::wstring folder = longPath(folderPath);
  watch.remote = onNetwork(folder);
  if (folderPath.empty() || watch.remote) return;
  watch.request.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (watch.request.hEvent == nullptr) return;
  openNearestFolder(watch, fullPathOf(folder));
  if (watching(watch)) requestChanges(watch);
}

// Either may be a short name, which has a tilde.
bool mayBe(std::wstring_view reported, const std::string &name) {
  const std::wstring wide = toUtf16(name);
  if (reported.find(L'~') != std::wstring_view::npos || wide.find(L'~') != std::wstring::npos) return true;
  return CompareStringOrdinal(reported.data(), static_cast<int>(reported.size()), wide.data(),
                              static_cast<int>(wide.size()), TRUE) == CSTR_EQUAL;
}

// Whether one of the names is in the first `bytes` of the changes. If these were too many there are none.
bool reports(const FileWatch &watch, DWORD bytes, const std::vector<std::string> &names) {
  if (bytes == 0) return true;
  const auto *entry = reinterpret_cast<const std::byte *>(watch.changes.data());
  for (;;) {
    const auto &change = *reinterpret_cast<const FILE_NOTIFY_INFORMATION *>(entry);
    const std::wstring_view reported(change.FileName, change.FileNameLength / sizeof(wchar_t));
    if (std::any_of(names.begin(), names.end(), [&](const auto &name) { return mayBe(reported, name); })) return true;
    if (change.NextEntryOffset == 0) return false;
    entry += change.NextEntryOffset;
  }
}

void takeChanges(FileWatch &watch, ViewerState &viewer) {
  DWORD bytes = 0;
  const bool exists = GetOverlappedResult(watch.folder, &watch.request, &bytes, FALSE) ||
                      GetLastError() == ERROR_NOTIFY_ENUM_DIR; // too many changes
  const auto names = watch.missing.empty() ? followedNames(viewer) : std::vector<std::string>{watch.missing};
  if (reports(watch, bytes, names)) noteFileChange(viewer);
  exists ? requestChanges(watch) : closeFolder(watch);
}

} // namespace

bool waitForMessages(FileWatch &watch, ViewerState &viewer) {
  const std::string folder = followedFolder(viewer);
  const std::string wanted = followedNames(viewer).empty() ? "" : folder.empty() ? ".\\" : folder;
  if (wanted != watch.folderPath) startWatching(watch, wanted);
  const DWORD handles = watching(watch) ? 1 : 0;
  const DWORD delay = watch.remote ? INFINITE : followDelay(viewer).value_or(INFINITE);
  const DWORD reason =
      MsgWaitForMultipleObjectsEx(handles, &watch.request.hEvent, delay, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  if (reason == WAIT_OBJECT_0 && handles == 1) takeChanges(watch, viewer);
  if (reason != WAIT_TIMEOUT) return false;
  startWatching(watch, wanted); // the folder may be another one of the same name
  followFile(viewer);
  return true;
}

void stopWatching(FileWatch &watch) {
  DWORD bytes = 0;
  if (watching(watch)) {
    CancelIoEx(watch.folder, &watch.request);
    GetOverlappedResult(watch.folder, &watch.request, &bytes, TRUE); // until then the system may write
    CloseHandle(watch.folder);
  }
  if (watch.request.hEvent != nullptr) CloseHandle(watch.request.hEvent);
  watch = {};
}
