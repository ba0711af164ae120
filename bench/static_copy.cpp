// The least that a converting program does: a static one that reads a file and writes another.
// Usage: static_copy FROM TO
#include <array>
#include <cstdio>

int main(int argumentCount, char **arguments) {
  if (argumentCount != 3) return 2;
  std::FILE *from = std::fopen(arguments[1], "rb");
  std::FILE *to = std::fopen(arguments[2], "wb");
  if (from == nullptr || to == nullptr) return 1;
  static std::array<char, size_t{1} << 20> bytes;
  std::setvbuf(from, nullptr, _IONBF, 0);
  std::setvbuf(to, nullptr, _IONBF, 0);
  const size_t count = std::fread(bytes.data(), 1, bytes.size(), from);
  const bool written = std::fwrite(bytes.data(), 1, count, to) == count;
  return written && std::fclose(to) == 0 && std::fclose(from) == 0 ? 0 : 1;
}
