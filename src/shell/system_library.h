// Libraries loaded on first use: loading all of them at the start would double the time until the window is shown.
// Loaded from the system folder only, so a file beside the program cannot replace them.
#pragma once

#include "base/windows_text.h"

#include <windows.h>

// Loads the library and never frees it; nullptr if the system has none.
inline HMODULE systemLibrary(const char *name) {
  return LoadLibraryExW(toUtf16(name).c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// A function of the library; nullptr if it has none of that name, or if `library` is nullptr.
template <typename Function> Function *libraryFunction(HMODULE library, const char *name) {
  if (library == nullptr) return nullptr;
  return reinterpret_cast<Function *>(reinterpret_cast<void *>(GetProcAddress(library, name)));
}
