#include "state/input_file.h"

#include <algorithm>
#include <array>

bool openInputFile(InputFile &file, const FileOps &files, const std::string &path) {
  closeInputFile(file);
  file.files = &files;
  file.handle = files.openForReading(path.c_str());
  return file.handle != nullptr;
}

void closeInputFile(InputFile &file) {
  if (file.handle != nullptr) file.files->close(file.handle);
  file.handle = nullptr;
}

int64_t inputFileLength(const InputFile &file) { return file.handle != nullptr ? file.files->length(file.handle) : 0; }

FileStamp stampOf(const InputFile &file) {
  if (file.handle == nullptr) return {};
  return {.length = file.files->length(file.handle), .writeTime = file.files->writeTime(file.handle)};
}

size_t readAvailableBytes(const InputFile &file, int64_t position, std::span<uint8_t> into) {
  if (file.handle == nullptr || position < 1) return 0;
  return file.files->readAt(file.handle, position - 1, into.data(), into.size());
}

size_t readBytes(const InputFile &file, int64_t position, std::span<uint8_t> into) {
  const size_t given = readAvailableBytes(file, position, into);
  std::fill(into.begin() + static_cast<std::ptrdiff_t>(given), into.end(), uint8_t{0});
  return given;
}

uint8_t readByte(const InputFile &file, int64_t position) {
  std::array<uint8_t, 1> byte{};
  readBytes(file, position, byte);
  return byte[0];
}

bool beginsWith(const InputFile &file, std::string_view letters) {
  std::array<uint8_t, 16> bytes{};
  const auto start = std::span(bytes).first(letters.size());
  readBytes(file, 1, start);
  return std::equal(start.begin(), start.end(), letters.begin(),
                    [](uint8_t byte, char letter) { return byte == static_cast<uint8_t>(letter); });
}

uint16_t readWord(const InputFile &file, int64_t position) {
  std::array<uint8_t, 2> bytes{};
  readBytes(file, position, bytes);
  return static_cast<uint16_t>(bytes[0] | bytes[1] << 8);
}

int16_t readSignedWord(const InputFile &file, int64_t position) {
  return static_cast<int16_t>(readWord(file, position));
}
