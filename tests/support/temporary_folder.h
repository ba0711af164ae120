// A folder on the real disk for one test, removed with all that it holds.
#pragma once

#include <filesystem>
#include <fstream>
#include <vector>

struct TemporaryFolder {
  std::string path; // UTF-8, ends in a separator

  explicit TemporaryFolder(const std::string &name) {
    std::filesystem::path folder = std::filesystem::temp_directory_path() / ("korilan_tests_" + name) / "";
    path = folder.make_preferred().string();
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }

  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path, error);
  }

  // Writes a file and returns its path.
  std::string write(const std::u8string &name, const std::vector<uint8_t> &bytes) const {
    std::ofstream(path / std::filesystem::path(name), std::ios::binary)
        .write(reinterpret_cast<const char *>(bytes.data()), std::ssize(bytes));
    return path + std::string(name.begin(), name.end());
  }

  // The bytes of a file; empty where there is none.
  std::vector<uint8_t> read(const std::u8string &name) const {
    std::ifstream file(path / std::filesystem::path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  size_t fileCount() const { return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(path), {})); }
};
