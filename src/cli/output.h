// Where the program writes: files, which are replaced only once they are complete, and standard output.
#pragma once

#include "base/file_ops.h"

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

inline constexpr const char *kStandardOutput = "-";

struct CliOutput {
  std::string path;
  OutputHandle handle = nullptr; // nullptr for standard output
};

// Each returns an empty text, or what went wrong.
std::string beginCliOutput(CliOutput &output, const std::string &path);
std::string writeCliOutput(const CliOutput &output, std::span<const uint8_t> bytes);

// Keeps what was written if `failure` is empty; otherwise returns it.
std::string finishCliOutput(const CliOutput &output, const std::string &failure);

// Text whose control characters, which names of files may hold, appear as \x1B: U+0000 to U+001F and U+007F to U+009F.
std::string withoutControls(std::string_view text);

// Whether a stream of the program leads to a terminal.
bool isTerminal(std::FILE *stream);

// Prints a line, on a terminal without control characters. Returns false if that fails.
bool printLine(std::FILE *stream, const std::string &line);

// A line on standard error.
void printError(const std::string &line);
