// Stands in for the fuzzer: runs every file of the folders and files on the command line through the target.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

size_t replay(const std::filesystem::path &path) {
  if (std::filesystem::is_directory(path)) {
    size_t count = 0;
    for (const auto &entry : std::filesystem::directory_iterator(path)) count += replay(entry.path());
    return count;
  }
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
  return 1;
}

} // namespace

int main(int argumentCount, char **arguments) {
  size_t count = 0;
  for (int i = 1; i < argumentCount; ++i) count += replay(arguments[i]);
  std::printf("%zu inputs\n", count);
  return count > 0 ? 0 : 1; // a corpus that is not there would test nothing
}
