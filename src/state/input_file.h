// The current input file, read by 1-based position as the formats count.
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

// Closes the old file and opens `path`. Returns false, with the file closed, on failure.
bool openInputFile(InputFile &file, const FileOps &files, const std::string &path);

void closeInputFile(InputFile &file);

// Length in bytes; 0 while closed.
int64_t inputFileLength(const InputFile &file);

// Length and time of the last write; a file that is closed has neither.
struct FileStamp {
  int64_t length = -1; // bytes
  int64_t writeTime = 0;

  bool operator==(const FileStamp &) const = default;
};

FileStamp stampOf(const InputFile &file);

// Fills `into` from `position` (1-based) on, with zeros past the end of the file and for a position below 1.
// Returns how many bytes the file had.
size_t readBytes(const InputFile &file, int64_t position, std::span<uint8_t> into);

// The same, but bytes past the end of the file keep their value.
size_t readAvailableBytes(const InputFile &file, int64_t position, std::span<uint8_t> into);

// The byte at `position`; 0 past the end.
uint8_t readByte(const InputFile &file, int64_t position);

// Whether the file begins with these letters, at most 16.
bool beginsWith(const InputFile &file, std::string_view letters);

// The little-endian word at `position`, -32768 to 32767.
int16_t readSignedWord(const InputFile &file, int64_t position);

// The same word unsigned, 0 to 65535.
uint16_t readWord(const InputFile &file, int64_t position);
