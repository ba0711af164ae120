#include "base/file_ops.h"

std::string replaceFile(const FileOps &files, const std::string &path, std::span<const uint8_t> bytes) {
  std::string failure;
  const OutputHandle output = files.beginOutput(path.c_str(), failure);
  if (output == nullptr) return failure;
  failure = files.write(output, bytes);
  const std::string endFailure = files.finishOutput(output, failure.empty());
  return failure.empty() ? endFailure : failure;
}
