#include "cli/output.h"

#include "cli/arguments.h"

#include <cstdint>
#include <span>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr const char *kNotWritten = "could not be written";

std::string putToStandardOutput(std::span<const uint8_t> bytes) {
  const bool written = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
  return written ? "" : kNotWritten;
}

} // namespace

std::string withoutControls(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
    const bool high = byte == 0xC2 && next >= 0x80 && next < 0xA0;
    if (byte >= 0x20 && byte != 0x7F && !high) {
      plain += text[i];
      continue;
    }
    const unsigned char code = high ? next : byte;
    plain += "\\x";
    plain += kDigits[code >> 4];
    plain += kDigits[code & 15];
    if (high) ++i;
  }
  return plain;
}

std::string writeCliOutput(const std::string &path, const std::function<std::string(const PutBytes &put)> &write) {
  if (path != kStandardStream) {
    const std::string failure = replaceFile(systemFiles(), path, write);
    return failure.empty() ? "" : path + ": " + failure;
  }
  if (isTerminal(stdout)) return "standard output: is a terminal, to which pictures and videos are not written";
  std::string failure = write(putToStandardOutput);
  if (std::fflush(stdout) != 0 && failure.empty()) failure = kNotWritten;
  return failure.empty() ? "" : "standard output: " + failure;
}

bool isTerminal(std::FILE *stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

bool printLine(std::FILE *stream, const std::string &line) {
  const std::string text = (isTerminal(stream) ? withoutControls(line) : line) + "\n";
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size();
}

void printError(const std::string &line) { (void)printLine(stderr, line); }
