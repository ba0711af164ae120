// UTF-8 to the UTF-16 of Windows' W functions, and back; paths for them.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Bytes that are not UTF-8 become U+FFFD.
inline std::wstring toUtf16(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), units);
  return wide;
}

inline std::string toUtf8(std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(), bytes, nullptr, nullptr);
  return narrow;
}

// The path with its drive and all folders; `path` itself on failure.
inline std::wstring fullPathOf(const std::wstring &path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0'); // room for the NUL, too
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full.empty() ? path : full;
}

// The path of the file that a program or library was loaded from; nullptr is the program.
inline std::wstring modulePath(HMODULE module) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

// The path for a W function. From MAX_PATH characters on it is accepted only in full and behind \\?\ unless the
// system is set up for longer ones.
inline std::wstring longPath(const std::string &path) {
  std::wstring wide = toUtf16(path);
  const std::wstring full = fullPathOf(wide);
  if (full.size() < MAX_PATH || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return wide;
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}
