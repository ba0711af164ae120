// Where the program writes: files, which are replaced only once they are complete, and standard output.
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

// Each returns an empty text, or what went wrong; to begin goes wrong too once the program was interrupted.
std::string beginCliOutput(CliOutput &output, const std::string &path);
std::string writeCliOutput(const CliOutput &output, std::span<const uint8_t> bytes);

// What is said of an output that the program was interrupted at; an empty text until then.
std::string stopLine(const CliOutput &output);

// Keeps what was written when `failure`, which is returned where it is not empty, says nothing.
std::string finishCliOutput(const CliOutput &output, const std::string &failure);

// A line on standard error.
void complain(const std::string &line);
