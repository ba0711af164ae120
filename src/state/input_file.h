// The one current input file, read by 1-based position the way the formats count.
#pragma once

#include "base/file_ops.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

struct InputFile {
  const FileOps *files = nullptr;
  FileHandle handle = nullptr; // nullptr while closed
};

// Closes what was open and opens `path`. Returns false, with the file closed, when that fails.
bool openInputFile(InputFile &file, const FileOps &files, const std::string &path);

void closeInputFile(InputFile &file);

// Length in bytes; 0 while closed.
int64_t inputFileLength(const InputFile &file);

// Fills `into` from `position` (1-based) onward, with zeros where the file has no more bytes.
// Returns how many bytes came from the file. A position below 1 gives zeros only.
size_t readBytes(const InputFile &file, int64_t position, std::span<uint8_t> into);

// The same, but what the file does not give keeps its value.
size_t readAvailableBytes(const InputFile &file, int64_t position, std::span<uint8_t> into);

// The byte at `position`, zero past the end.
uint8_t readByte(const InputFile &file, int64_t position);

// Whether the file begins with these letters.
bool beginsWith(const InputFile &file, std::string_view letters);

// The little-endian word at `position`, as the signed number that header bounds are compared with.
int16_t readSignedWord(const InputFile &file, int64_t position);

// The same word as a number from 0 to 65535.
uint16_t readWord(const InputFile &file, int64_t position);
