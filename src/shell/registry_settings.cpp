#include "shell/registry_settings.h"

#include "shell/system_library.h"

#include <windows.h>

#include <shlobj.h>

#include <array>

namespace {

// HKEY_CLASSES_ROOT merges the classes of the user and of the machine. A key created there belongs to the machine and
// needs administrator rights, so settings are written to the classes of the user.
constexpr char kUserClasses[] = "Software\\Classes\\";

constexpr wchar_t kProgramKey[] = L"Software\\Korilan";

constexpr REGSAM kReadWrite = KEY_READ | KEY_WRITE | KEY_CREATE_LINK;
static_assert(kReadWrite == 0x2003F);

// Returns without waiting for the desktop.
constexpr UINT kNotifyFlags = SHCNF_FLUSHNOWAIT & ~SHCNF_FLUSH;
static_assert(kNotifyFlags == 8192);

// Read-only for a key of the machine.
HKEY openSetting(const std::string &key) {
  for (const REGSAM access : {kReadWrite, REGSAM{KEY_READ}}) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, toUtf16(key).c_str(), 0, access, &opened) == ERROR_SUCCESS) return opened;
  }
  return nullptr;
}

void createSetting(HKEY root, const std::string &key, const std::string &value) {
  HKEY created = nullptr;
  if (RegCreateKeyW(root, toUtf16(key).c_str(), &created) != ERROR_SUCCESS) return;
  const std::wstring text = toUtf16(value);
  RegSetValueW(created, nullptr, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() * sizeof text[0]));
  RegCloseKey(created);
}

} // namespace

std::string readRegistrySetting(const std::string &key) {
  const HKEY opened = openSetting(key);
  if (opened == nullptr) return "";
  std::array<wchar_t, 1024> text{};
  DWORD bytes = (text.size() - 1) * sizeof text[0];
  const LSTATUS status =
      RegQueryValueExW(opened, nullptr, nullptr, nullptr, reinterpret_cast<BYTE *>(text.data()), &bytes);
  RegCloseKey(opened);
  return status == ERROR_SUCCESS ? toUtf8(text.data()) : "";
}

void writeRegistrySetting(const std::string &key, const std::string &value) {
  createSetting(HKEY_CURRENT_USER, kUserClasses + key, value);
  // HKEY_CLASSES_ROOT may not show the classes of the user.
  if (readRegistrySetting(key) != value) createSetting(HKEY_CLASSES_ROOT, key, value);
}

// Deletes the subtree, so no half of another program's class is left.
void deleteRegistrySetting(const std::string &key) {
  RegDeleteTreeW(HKEY_CURRENT_USER, toUtf16(kUserClasses + key).c_str());
  RegDeleteTreeW(HKEY_CLASSES_ROOT, toUtf16(key).c_str());
}

void notifyAssociationsChanged() {
  const auto notify = libraryFunction<decltype(SHChangeNotify)>(systemLibrary("shell32.dll"), "SHChangeNotify");
  if (notify != nullptr) notify(SHCNE_ASSOCCHANGED, kNotifyFlags, nullptr, nullptr);
}

std::optional<std::string> readRegistryValue(const std::string &name) {
  const std::wstring wide = toUtf16(name);
  DWORD bytes = 0;
  const auto read = [&](void *into) {
    return RegGetValueW(HKEY_CURRENT_USER, kProgramKey, wide.c_str(), RRF_RT_REG_SZ, nullptr, into, &bytes);
  };
  if (read(nullptr) != ERROR_SUCCESS) return std::nullopt;
  std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (read(text.data()) != ERROR_SUCCESS) return std::nullopt;
  return toUtf8(text.c_str());
}

void writeRegistryValue(const std::string &name, const std::string &value) {
  const std::wstring text = toUtf16(value);
  RegSetKeyValueW(HKEY_CURRENT_USER, kProgramKey, toUtf16(name).c_str(), REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}
