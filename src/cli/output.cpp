#include "cli/output.h"

#include <string_view>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr const char *kNotWritten = "standard output: could not be written";

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

std::string beginCliOutput(CliOutput &output, const std::string &path) {
  output = {.path = path};
  if (path == kStandardOutput) return "";
  std::string failure;
  output.handle = systemFiles().beginOutput(path.c_str(), failure);
  return output.handle != nullptr ? "" : path + ": " + failure;
}

std::string writeCliOutput(const CliOutput &output, std::span<const uint8_t> bytes) {
  if (output.handle != nullptr) {
    const std::string failure = systemFiles().write(output.handle, bytes);
    return failure.empty() ? "" : output.path + ": " + failure;
  }
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() ? "" : kNotWritten;
}

std::string finishCliOutput(const CliOutput &output, const std::string &failure) {
  std::string endFailure;
  if (output.handle != nullptr) {
    endFailure = systemFiles().finishOutput(output.handle, failure.empty());
    if (!endFailure.empty()) endFailure = output.path + ": " + endFailure;
  } else if (std::fflush(stdout) != 0) {
    endFailure = kNotWritten;
  }
  return failure.empty() ? endFailure : failure;
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
