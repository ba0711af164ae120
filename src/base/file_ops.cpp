#include "base/file_ops.h"

std::string replaceFile(const FileOps &files, const std::string &path,
                        const std::function<std::string(const PutBytes &put)> &write) {
  std::string failure;
  const OutputHandle output = files.beginOutput(path.c_str(), failure);
  if (output == nullptr) return failure;
  failure = write([&](std::span<const uint8_t> bytes) { return files.write(output, bytes); });
  const std::string endFailure = files.finishOutput(output, failure.empty());
  return failure.empty() ? endFailure : failure;
}
