#include "cli/standard_input.h"

#include "base/memory_files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

std::string readStandardInput(const std::string &name) {
  constexpr size_t kMaxBytes = size_t{1} << 30;
  // After its end a terminal would be asked again.
  const auto read = [](std::span<uint8_t> into) {
    return std::feof(stdin) == 0 ? std::fread(into.data(), 1, into.size(), stdin) : 0;
  };
  std::vector<uint8_t> bytes;
  if (!readUpTo(kMaxBytes + 1, read, bytes)) return "there is not enough memory";
  if (bytes.size() > kMaxBytes) return "longer than 1 GiB";
  if (std::ferror(stdin) != 0) return std::strerror(errno);
  putMemoryFile(name, std::move(bytes));
  return "";
}
