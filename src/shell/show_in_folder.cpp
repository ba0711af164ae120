#include "shell/show_in_folder.h"

#include "base/windows_text.h"

#include <windows.h>

#include <array>

bool showInFileManager(const std::string &path) {
  const std::wstring file = toUtf16(path);
  if (GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
  std::array<wchar_t, MAX_PATH> folder{};
  const UINT letters = GetSystemWindowsDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
  if (letters == 0 || letters >= folder.size()) return false;
  // By its full path: another program of that name beside the picture is not started.
  const std::wstring program = std::wstring(folder.data()) + L"\\explorer.exe";
  std::wstring command = L"\"" + program + L"\" /select,\"" + file + L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    return false;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}
