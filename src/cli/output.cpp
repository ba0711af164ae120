#include "cli/output.h"

#include "cli/interrupt.h"

#include <cstdio>

std::string beginCliOutput(CliOutput &output, const std::string &path) {
  output = {.path = path};
  if (std::string stop = stopLine(output); !stop.empty()) return stop;
  if (path == kStandardOutput) return "";
  std::string failure;
  output.handle = systemFiles().beginOutput(path.c_str(), failure);
  return output.handle != nullptr ? "" : path + ": " + failure;
}

std::string stopLine(const CliOutput &output) { return interrupted() ? output.path + ": stopped" : ""; }

std::string writeCliOutput(const CliOutput &output, std::span<const uint8_t> bytes) {
  if (output.handle != nullptr) {
    const std::string failure = systemFiles().write(output.handle, bytes);
    return failure.empty() ? "" : output.path + ": " + failure;
  }
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() ? ""
                                                                            : "standard output: could not be written";
}

std::string finishCliOutput(const CliOutput &output, const std::string &failure) {
  std::string endFailure;
  if (output.handle != nullptr) {
    endFailure = systemFiles().finishOutput(output.handle, failure.empty());
    if (!endFailure.empty()) endFailure = output.path + ": " + endFailure;
  } else if (std::fflush(stdout) != 0) {
    endFailure = "standard output: could not be written";
  }
  return failure.empty() ? endFailure : failure;
}

void printError(const std::string &line) {
  (void)std::fputs((line + "\n").c_str(), stderr); // a failure cannot be reported
}
