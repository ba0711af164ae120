// Output to standard output, or to files, which are replaced only when complete.
#pragma once

#include "base/file_ops.h"

#include <cstdint>
#include <span>
#include <string>

inline constexpr const char *kStandardOutput = "-";

struct CliOutput {
  std::string path;
  OutputHandle handle = nullptr; // nullptr for standard output
};

// Each returns an error message, empty on success. After an interrupt beginCliOutput() fails.
std::string beginCliOutput(CliOutput &output, const std::string &path);
std::string writeCliOutput(const CliOutput &output, std::span<const uint8_t> bytes);

// The message for an interrupted output; empty if not interrupted.
std::string stopLine(const CliOutput &output);

// Completes the output if `failure` is empty, otherwise discards it. Returns `failure`, or the error of completing.
std::string finishCliOutput(const CliOutput &output, const std::string &failure);

// A line on standard error.
void printError(const std::string &line);
