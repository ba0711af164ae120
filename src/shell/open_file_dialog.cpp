#include "shell/open_file_dialog.h"

#include "base/numbers.h"
#include "shell/system_library.h"
#include "shell/themed_controls.h"

#include <windows.h>

#include <commdlg.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

constexpr char kDialogLibrary[] = "Comdlg32.dll";
constexpr char kTitle[] = "Open A File";
constexpr DWORD kFlags = OFN_FORCESHOWHIDDEN | OFN_ENABLESIZING | OFN_EXPLORER | OFN_EXTENSIONDIFFERENT |
                         OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
static_assert(kFlags == 0x1088040E);

// Size of the record before its last three fields were added; 76 instead of 88 bytes in 32-bit programs.
constexpr DWORD kOldRecordBytes = offsetof(OPENFILENAMEA, pvReserved);

// Whether the major version of the dialog library is at least 5.
Flag16 commonDialogIsNew() {
  constexpr WORD kNewMajorVersion = 5;
  const HMODULE version = systemLibrary("version.dll");
  const auto sizeOf = libraryFunction<decltype(GetFileVersionInfoSizeA)>(version, "GetFileVersionInfoSizeA");
  const auto read = libraryFunction<decltype(GetFileVersionInfoA)>(version, "GetFileVersionInfoA");
  const auto query = libraryFunction<decltype(VerQueryValueA)>(version, "VerQueryValueA");
  if (sizeOf == nullptr || read == nullptr || query == nullptr) return kFalse;

  const DWORD size = sizeOf(kDialogLibrary, nullptr);
  if (static_cast<int32_t>(size) <= 0) return kFalse;
  std::vector<uint8_t> record(size);
  if (!read(kDialogLibrary, 0, size, record.data())) return kFalse;
  void *root = nullptr;
  UINT rootBytes = 0;
  if (!query(record.data(), "\\", &root, &rootBytes) || root == nullptr) return kFalse;
  return toFlag(HIWORD(static_cast<const VS_FIXEDFILEINFO *>(root)->dwFileVersionMS) >= kNewMajorVersion);
}

} // namespace

std::string runOpenFileDialog(HWND owner, const std::string &filter, const std::string &initialDirectory) {
  std::array<char, 700> path{};
  std::array<char, 260> title{};
  OPENFILENAMEA request{};
  request.lStructSize = commonDialogIsNew() == kTrue ? static_cast<DWORD>(sizeof request) : kOldRecordBytes;
  request.hwndOwner = owner;
  request.lpstrFilter = filter.c_str();
  request.lpstrFile = path.data();
  request.nMaxFile = path.size();
  request.lpstrFileTitle = title.data();
  request.nMaxFileTitle = title.size();
  request.lpstrInitialDir = initialDirectory.c_str();
  request.lpstrTitle = kTitle;
  request.Flags = kFlags;
  const ThemedControls themed;
  const auto ask = libraryFunction<decltype(GetOpenFileNameA)>(systemLibrary(kDialogLibrary), "GetOpenFileNameA");
  if (ask == nullptr || !ask(&request)) return "";
  path.back() = '\0';
  return path.data();
}
