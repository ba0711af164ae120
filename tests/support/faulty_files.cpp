#include "support/faulty_files.h"

#include "support/memory_files.h"

namespace {

constexpr const char *kFailure = "disk is broken";

bool readFails() {
  DiskFaults &faults = diskFaults();
  ++faults.reads;
  if (faults.failingRead == 0 || faults.reads < faults.failingRead) return false;
  return faults.reads == faults.failingRead || faults.readsStayFailed;
}

bool outputFails() { return ++diskFaults().outputSteps == diskFaults().failingOutputStep; }

FileHandle openForReading(const char *path) { return readFails() ? nullptr : memoryFiles().openForReading(path); }

int64_t lengthOf(FileHandle file) { return readFails() ? 0 : memoryFiles().length(file); }

// A read that fails has given the half of it.
size_t readAt(FileHandle file, int64_t offset, uint8_t *into, size_t count) {
  return memoryFiles().readAt(file, offset, into, readFails() ? count / 2 : count);
}

OutputHandle beginOutput(const char *path, std::string &failure) {
  if (!outputFails()) return memoryFiles().beginOutput(path, failure);
  failure = kFailure;
  return nullptr;
}

std::string writeOutput(OutputHandle output, std::span<const uint8_t> bytes) {
  return outputFails() ? kFailure : memoryFiles().write(output, bytes);
}

std::string finishOutput(OutputHandle output, bool keep) {
  const bool fails = outputFails();
  const std::string failure = memoryFiles().finishOutput(output, keep && !fails);
  return fails ? kFailure : failure;
}

} // namespace

DiskFaults &diskFaults() {
  static thread_local DiskFaults faults;
  return faults;
}

const FileOps &faultyFiles() {
  static const FileOps files{.openForReading = openForReading,
                             .length = lengthOf,
                             .readAt = readAt,
                             .close = memoryFiles().close,
                             .listFolder = memoryFiles().listFolder,
                             .beginOutput = beginOutput,
                             .write = writeOutput,
                             .finishOutput = finishOutput};
  return files;
}
