#include "shell/kept_classes.h"

#include <windows.h>

#include <array>
#include <vector>

namespace {

constexpr char kKeptKey[] = "Software\\KorilanTests\\";

constexpr std::array<const char *, 26> kKeys{"Korilan", ".GE5", ".DAT", ".CMP", ".SC2", ".SR2", ".SC4", ".SR4", ".SC5",
                                             ".SR5",    ".SC6", ".SR6", ".SC7", ".SR7", ".SC8", ".SR8", ".SCA", ".SRA",
                                             ".S10",    ".SCB", ".SRB", ".S11", ".SCC", ".SRC", ".S12", ".G9B"};

// The view of HKEY_CLASSES_ROOT joins both.
struct Store {
  HKEY root;
  const char *name;
};
const std::array<Store, 2> kStores{{{HKEY_CURRENT_USER, "user\\"}, {HKEY_LOCAL_MACHINE, "machine\\"}}};

std::string classKey(const std::string &key) { return "Software\\Classes\\" + key; }

void moveTree(HKEY fromRoot, const std::string &from, HKEY toRoot, const std::string &to) {
  HKEY source = nullptr;
  if (RegOpenKeyExA(fromRoot, from.c_str(), 0, KEY_READ, &source) != ERROR_SUCCESS) return;
  HKEY target = nullptr;
  const bool copied = RegCreateKeyA(toRoot, to.c_str(), &target) == ERROR_SUCCESS &&
                      RegCopyTreeA(source, nullptr, target) == ERROR_SUCCESS;
  RegCloseKey(target);
  RegCloseKey(source);
  if (copied) RegDeleteTreeA(fromRoot, from.c_str());
}

} // namespace

KeptClasses::KeptClasses() {
  for (const Store &store : kStores) {
    for (const std::string key : kKeys) {
      moveTree(store.root, classKey(key), HKEY_CURRENT_USER, kKeptKey + (store.name + key));
    }
  }
}

KeptClasses::~KeptClasses() {
  for (const Store &store : kStores) {
    for (const std::string key : kKeys) {
      RegDeleteTreeA(store.root, classKey(key).c_str());
      moveTree(HKEY_CURRENT_USER, kKeptKey + (store.name + key), store.root, classKey(key));
    }
  }
}

std::string classText(const std::string &key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return "(none)";
  std::array<char, 1024> text{};
  DWORD bytes = text.size() - 1;
  DWORD type = 0;
  const LSTATUS status =
      RegQueryValueExA(opened, nullptr, nullptr, &type, reinterpret_cast<BYTE *>(text.data()), &bytes);
  RegCloseKey(opened);
  if (status != ERROR_SUCCESS) return "(no text)";
  return type == REG_SZ ? text.data() : "(of another type)";
}

void writeClass(const std::string &key, const std::string &text) {
  const auto bytes = static_cast<DWORD>(text.size());
  RegSetValueA(HKEY_CURRENT_USER, classKey(key).c_str(), REG_SZ, text.c_str(), bytes);
  // Where the view shows the machine's classes alone.
  if (classText(key) != text) RegSetValueA(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, text.c_str(), bytes);
}

std::string classLines() {
  std::vector<std::string> keys(kKeys.begin(), kKeys.end());
  const std::vector<std::string> own{"Korilan\\shell\\open\\command",
                                     "Korilan\\DefaultIcon",
                                     "Korilan\\AutoCenter",
                                     "Korilan\\EscExits",
                                     "Korilan\\Shortcuts",
                                     "Korilan\\AutoRatio"};
  keys.insert(keys.begin() + 1, own.begin(), own.end());
  std::string lines;
  for (const std::string &key : keys) lines += key + " = " + classText(key) + "\n";
  return lines;
}
