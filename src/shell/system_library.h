// Libraries that are loaded when they are first needed, since to load them all would double the time until the window
// stands; and from the system's own folder, so that no file beside the program can stand in for them.
#pragma once

#include <windows.h>

// The library, which stays loaded; nullptr where the system has none.
inline HMODULE systemLibrary(const char *name) { return LoadLibraryExA(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32); }

// A function of it, or nullptr.
template <typename Function> Function *libraryFunction(HMODULE library, const char *name) {
  if (library == nullptr) return nullptr;
  return reinterpret_cast<Function *>(reinterpret_cast<void *>(GetProcAddress(library, name)));
}
