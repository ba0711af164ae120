// make_samples DIR: writes all sample pictures and disk images below DIR, the unusual ones in DIR/odd.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "sample_pictures.h"

namespace {

std::filesystem::path pathOfUtf8(const std::string &text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

bool writeWholeFile(const std::filesystem::path &path, const std::vector<std::uint8_t> &bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good();
}

void printError(const std::string &line) {
  (void)std::fputs((line + "\n").c_str(), stderr); // its own failure cannot be reported
}

} // namespace

int main(int argumentCount, char **arguments) {
  if (argumentCount != 2 || arguments[1][0] == '\0' || arguments[1][0] == '-') {
    printError("usage: make_samples DIR");
    return 2;
  }
  const std::filesystem::path folder = pathOfUtf8(arguments[1]);
  std::error_code failure;
  std::filesystem::create_directories(folder / "odd", failure);
  if (failure) {
    printError(std::string("make_samples: cannot create ") + arguments[1] + "/odd: " + failure.message());
    return 1;
  }
  const auto write = [&](const std::string &name, const std::vector<std::uint8_t> &bytes) {
    const bool written = writeWholeFile(folder / pathOfUtf8(name), bytes);
    if (!written) printError(std::string("make_samples: cannot write ") + arguments[1] + "/" + name);
    return written;
  };
  for (const samples::SamplePicture &picture : samples::allSamplePictures()) {
    if (!write(picture.name, picture.bytes)) return 1;
    for (const samples::CompanionFile &companion : picture.companions) {
      if (!write(companion.name, companion.bytes)) return 1;
    }
  }
  for (const samples::SampleDisk &disk : samples::allSampleDisks()) {
    if (!write(disk.name, disk.bytes)) return 1;
  }
  return 0;
}
