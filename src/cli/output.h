// Where the program writes: files, which are replaced only once they are complete, and standard output.
#pragma once

#include "base/file_ops.h"

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

// Writes what `write` puts to a path, or to standard output, but not to a terminal. Returns what went wrong, or an
// empty text; a failure keeps an existing file.
std::string writeCliOutput(const std::string &path, const std::function<std::string(const PutBytes &put)> &write);

// Text whose control characters, which names of files may hold, appear as \x1B: U+0000 to U+001F and U+007F to U+009F.
std::string withoutControls(std::string_view text);

// Whether a stream of the program leads to a terminal.
bool isTerminal(std::FILE *stream);

// Prints a line, on a terminal without control characters. Returns false if that fails.
bool printLine(std::FILE *stream, const std::string &line);

// A line on standard error.
void printError(const std::string &line);
