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
constexpr wchar_t kTitle[] = L"Open A File";
constexpr DWORD kFlags = OFN_FORCESHOWHIDDEN | OFN_ENABLESIZING | OFN_EXPLORER | OFN_EXTENSIONDIFFERENT |
                         OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
static_assert(kFlags == 0x1088040E);

// Size of the record before its last three fields were added; 76 instead of 88 bytes in 32-bit programs.
constexpr DWORD kOldRecordBytes = offsetof(OPENFILENAMEW, pvReserved);

// Whether the major version of the dialog library is at least 5.
Flag16 commonDialogIsNew() {
  constexpr WORD kNewMajorVersion = 5;
  const HMODULE version = systemLibrary("version.dll");
  const auto sizeOf = libraryFunction<decltype(GetFileVersionInfoSizeW)>(version, "GetFileVersionInfoSizeW");
  const auto read = libraryFunction<decltype(GetFileVersionInfoW)>(version, "GetFileVersionInfoW");
  const auto query = libraryFunction<decltype(VerQueryValueW)>(version, "VerQueryValueW");
  if (sizeOf == nullptr || read == nullptr || query == nullptr) return kFalse;

  const std::wstring library = toUtf16(kDialogLibrary);
  const DWORD size = sizeOf(library.c_str(), nullptr);
  if (static_cast<int32_t>(size) <= 0) return kFalse;
  std::vector<uint8_t> record(size);
  if (!read(library.c_str(), 0, size, record.data())) return kFalse;
  void *root = nullptr;
  UINT rootBytes = 0;
  if (!query(record.data(), L"\\", &root, &rootBytes) || root == nullptr) return kFalse;
  return toFlag(HIWORD(static_cast<const VS_FIXEDFILEINFO *>(root)->dwFileVersionMS) >= kNewMajorVersion);
}

} // namespace

std::string runOpenFileDialog(HWND owner, const std::string &filter, const std::string &initialDirectory) {
  std::array<wchar_t, 700> path{};
  std::array<wchar_t, 260> title{};
  const std::wstring pairs = toUtf16(filter);
  const std::wstring folder = toUtf16(initialDirectory);
  OPENFILENAMEW request{};
  request.lStructSize = commonDialogIsNew() == kTrue ? static_cast<DWORD>(sizeof request) : kOldRecordBytes;
  request.hwndOwner = owner;
  request.lpstrFilter = pairs.c_str();
  request.lpstrFile = path.data();
  request.nMaxFile = path.size();
  request.lpstrFileTitle = title.data();
  request.nMaxFileTitle = title.size();
  request.lpstrInitialDir = folder.size() < MAX_PATH ? folder.c_str() : nullptr; // the dialog takes no longer one
  request.lpstrTitle = kTitle;
  request.Flags = kFlags;
  const ThemedControls themed;
  const auto ask = libraryFunction<decltype(GetOpenFileNameW)>(systemLibrary(kDialogLibrary), "GetOpenFileNameW");
  if (ask == nullptr || !ask(&request)) return "";
  path.back() = L'\0';
  return toUtf8(path.data());
}
