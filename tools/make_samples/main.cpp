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

// Returns the exit status.
int end(const std::string &line, int status) {
  (void)std::fputs((line + "\n").c_str(), stderr); // its own failure cannot be reported
  return status;
}

} // namespace

int main(int argumentCount, char **arguments) {
  const bool usable = argumentCount == 2 && arguments[1][0] != '\0' && arguments[1][0] != '-';
  if (!usable) return end("usage: make_samples DIR", 2);
  const std::filesystem::path folder = pathOfUtf8(arguments[1]);
  std::error_code failure;
  std::filesystem::create_directories(folder / "odd", failure);
  if (failure) return end(std::string("make_samples: cannot create ") + arguments[1] + "/odd: " + failure.message(), 1);
  std::string failed;
  const auto write = [&](const std::string &name, const samples::Bytes &bytes) {
    std::ofstream file(folder / pathOfUtf8(name), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file.good() && failed.empty()) failed = name;
  };
  for (const auto &files : {samples::allSamplePictures(), samples::allSampleDisks()}) {
    for (const auto &[name, bytes, companions] : files) {
      write(name, bytes);
      for (const samples::CompanionFile &companion : companions) write(companion.name, companion.bytes);
    }
  }
  return failed.empty() ? 0 : end(std::string("make_samples: cannot write ") + arguments[1] + "/" + failed, 1);
}
