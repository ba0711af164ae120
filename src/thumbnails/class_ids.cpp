#include "thumbnails/class_ids.h"

#include "core/file_kinds.h"
#include "thumbnails/thumbnail_source.h"

#include <algorithm>
#include <array>
#include <cstring>

CLSID classIdOf(const FileKind &kind) {
  CLSID id = {0x5D5C1B7E, 0x93F0, 0x4E4C, {0x8A, 0x26, 0x6B, 0x6F, 0x72}};
  constexpr size_t kLetters = 3; // after the dot
  std::memcpy(std::end(id.Data4) - kLetters, kind.extension + 1, kLetters);
  return id;
}

const FileKind *kindOfClass(REFCLSID id) {
  const auto kind = std::find_if(kFileKinds.begin(), kFileKinds.end(),
                                 [&id](const FileKind &row) { return hasThumbnails(row) && classIdOf(row) == id; });
  return kind != kFileKinds.end() ? &*kind : nullptr;
}

std::wstring textOf(REFGUID id) {
  std::array<wchar_t, 39> text{}; // with the NUL
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}
