#include "thumbnails/registration.h"

#include "base/windows_text.h"
#include "core/file_kinds.h"
#include "thumbnails/class_ids.h"
#include "thumbnails/thumbnail_source.h"

#include <windows.h>

#include <shlobj.h>
#include <thumbcache.h>

#include <algorithm>
#include <array>

//  key below Software\Classes                                      value             text
//  CLSID\{class}                                                                     Korilan thumbnails of .SC5 files
//  CLSID\{class}\InprocServer32                                                      path of the library
//                                                                  ThreadingModel    Apartment
//  .SC5\ShellEx\{e357fccd-a995-4576-b01f-234630154e96}                               {class}

namespace {

const std::wstring kUserClasses = L"Software\\Classes\\";

bool isDone(LSTATUS status) { return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND; }

std::wstring extensionKey(const FileKind &kind) { return toUtf16(kind.extension); }
std::wstring shellExKey(const FileKind &kind) { return extensionKey(kind) + L"\\ShellEx"; }
std::wstring handlerBelow(const std::wstring &key) {
  return key + L"\\ShellEx\\" + textOf(__uuidof(IThumbnailProvider));
}
std::wstring handlerKey(const FileKind &kind) { return handlerBelow(extensionKey(kind)); }
std::wstring classKey(const FileKind &kind) { return L"CLSID\\" + textOf(classIdOf(kind)); }

enum class Handler { kNone, kOwn, kForeign };

Handler handlerOf(HKEY root, const std::wstring &key, const FileKind &kind) {
  std::array<wchar_t, 64> text{}; // a longer one is foreign
  DWORD bytes = sizeof text;
  const LSTATUS status = RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
  if (status == ERROR_FILE_NOT_FOUND) return Handler::kNone;
  const std::wstring own = textOf(classIdOf(kind));
  return status == ERROR_SUCCESS && lstrcmpiW(text.data(), own.c_str()) == 0 ? Handler::kOwn : Handler::kForeign;
}

Handler userHandlerOf(const FileKind &kind) {
  return handlerOf(HKEY_CURRENT_USER, kUserClasses + handlerKey(kind), kind);
}

// The class of the program that opens the extension; empty if there is none.
std::wstring programClassOf(const FileKind &kind) {
  std::array<wchar_t, 256> text{};
  DWORD bytes = sizeof text;
  const std::wstring key = extensionKey(kind);
  return RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) ==
                 ERROR_SUCCESS
             ? text.data()
             : L"";
}

// HKEY_CLASSES_ROOT merges the classes of the user and of the machine. Shells look at the program's class and at what
// is common to all programs, too.
bool hasForeignHandler(const FileKind &kind) {
  if (userHandlerOf(kind) == Handler::kForeign) return true;
  const std::wstring extension = extensionKey(kind), program = programClassOf(kind);
  for (const std::wstring &key : {extension, L"SystemFileAssociations\\" + extension, program}) {
    if (!key.empty() && handlerOf(HKEY_CLASSES_ROOT, handlerBelow(key), kind) == Handler::kForeign) return true;
  }
  return false;
}

bool writeText(const std::wstring &key, const wchar_t *name, const std::wstring &text) {
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof text[0]);
  return RegSetKeyValueW(HKEY_CURRENT_USER, (kUserClasses + key).c_str(), name, REG_SZ, text.c_str(), bytes) ==
         ERROR_SUCCESS;
}

bool registerKind(const FileKind &kind, const std::wstring &libraryPath) {
  const std::wstring description = L"Korilan thumbnails of " + toUtf16(kind.extension) + L" files";
  const std::wstring server = classKey(kind) + L"\\InprocServer32";
  return writeText(classKey(kind), nullptr, description) && writeText(server, nullptr, libraryPath) &&
         writeText(server, L"ThreadingModel", L"Apartment") &&
         writeText(handlerKey(kind), nullptr, textOf(classIdOf(kind)));
}

void deleteIfEmpty(const std::wstring &userKey) {
  const std::wstring path = kUserClasses + userKey;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS status = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                          nullptr, nullptr, nullptr);
  RegCloseKey(key);
  if (status == ERROR_SUCCESS && keys == 0 && values == 0) RegDeleteKeyW(HKEY_CURRENT_USER, path.c_str());
}

bool unregisterKind(const FileKind &kind) {
  bool done = true;
  if (userHandlerOf(kind) == Handler::kOwn) {
    done = isDone(RegDeleteKeyValueW(HKEY_CURRENT_USER, (kUserClasses + handlerKey(kind)).c_str(), nullptr));
    for (const std::wstring &key : {handlerKey(kind), shellExKey(kind), extensionKey(kind)}) deleteIfEmpty(key);
  }
  return isDone(RegDeleteTreeW(HKEY_CURRENT_USER, (kUserClasses + classKey(kind)).c_str())) && done;
}

void notifyShell() { SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr); }

} // namespace

bool registerProviders(const std::wstring &libraryPath) {
  const bool done = std::all_of(kFileKinds.begin(), kFileKinds.end(), [&](const FileKind &kind) {
    return !hasThumbnails(kind) || hasForeignHandler(kind) || registerKind(kind, libraryPath);
  });
  if (!done) unregisterProviders();
  notifyShell();
  return done;
}

bool unregisterProviders() {
  bool done = true;
  for (const FileKind &kind : kFileKinds) {
    if (hasThumbnails(kind) && !unregisterKind(kind)) done = false;
  }
  deleteIfEmpty(L"CLSID");
  notifyShell();
  return done;
}
