#include "shell/registry_settings.h"

#include "shell/system_library.h"

#include <windows.h>

#include <shlobj.h>

#include <array>

namespace {

// HKEY_CLASSES_ROOT shows the classes of the user over those of the machine. Only the former can be written without
// administrator rights, and a key created through the view would go to the latter.
constexpr char kUserClasses[] = "Software\\Classes\\";

constexpr REGSAM kAccess = 0x2003F; // reading and writing

// A key of the machine can only be read.
HKEY openSetting(const std::string &key) {
  for (const REGSAM access : {kAccess, REGSAM{KEY_READ}}) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, access, &opened) == ERROR_SUCCESS) return opened;
  }
  return nullptr;
}

void createSetting(HKEY root, const std::string &key, const std::string &value) {
  HKEY created = nullptr;
  if (RegCreateKeyA(root, key.c_str(), &created) != ERROR_SUCCESS) return;
  RegSetValueA(created, nullptr, REG_SZ, value.c_str(), static_cast<DWORD>(value.size()));
  RegCloseKey(created);
}

} // namespace

std::string readRegistrySetting(const std::string &key) {
  const HKEY opened = openSetting(key);
  if (opened == nullptr) return "";
  std::array<char, 1024> text{};
  DWORD bytes = text.size() - 1;
  const LSTATUS status =
      RegQueryValueExA(opened, nullptr, nullptr, nullptr, reinterpret_cast<BYTE *>(text.data()), &bytes);
  RegCloseKey(opened);
  return status == ERROR_SUCCESS ? text.data() : "";
}

void writeRegistrySetting(const std::string &key, const std::string &value) {
  createSetting(HKEY_CURRENT_USER, kUserClasses + key, value);
  // Where the view does not show the user's classes.
  if (readRegistrySetting(key) != value) createSetting(HKEY_CLASSES_ROOT, key, value);
}

// With all that stands below it, so that the class of another program does not stay behind in part.
void deleteRegistrySetting(const std::string &key) {
  RegDeleteTreeA(HKEY_CURRENT_USER, (kUserClasses + key).c_str());
  RegDeleteTreeA(HKEY_CLASSES_ROOT, key.c_str());
}

void notifyAssociationsChanged() {
  const auto notify = libraryFunction<decltype(SHChangeNotify)>(systemLibrary("shell32.dll"), "SHChangeNotify");
  if (notify != nullptr) notify(SHCNE_ASSOCCHANGED, 8192, nullptr, nullptr);
}
