#include "fuzz_viewer.h"

#include "core/commands.h"
#include "support/memory_files.h"

FuzzViewer &freshViewer() {
  static FuzzViewer fuzz;
  memoryDisk().clear();
  fuzz.platform = {};
  attachHeadless(fuzz.viewer, fuzz.platform);
  fuzz.viewer.platform.files = &memoryFiles();
  // What a reset keeps and a new window does not have.
  fuzz.viewer.vidPlayer.headerReady = kFalse;
  fuzz.viewer.evaPlayer.framesPerSecond = 0;
  fuzz.viewer.filePath.clear();
  fuzz.viewer.frameBits = {};
  fuzz.viewer.frameWidth = fuzz.viewer.frameHeight = 0;
  startViewer(fuzz.viewer, "");
  return fuzz;
}

void putFile(const std::string &path, std::span<const uint8_t> bytes) {
  memoryDisk()[path].assign(bytes.begin(), bytes.end());
}

uint8_t takeByte(std::span<const uint8_t> &input) {
  if (input.empty()) return 0;
  const uint8_t byte = input.front();
  input = input.subspan(1);
  return byte;
}
