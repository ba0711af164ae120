// The command lines of both programs.
#include "fuzz_viewer.h"

#include "cli/arguments.h"
#include "core/commands.h"
#include "core/folder_navigation.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const std::string line(reinterpret_cast<const char *>(data), size);
  FuzzViewer &fuzz = freshViewer();
  startViewer(fuzz.viewer, line);
  openNextFile(fuzz.viewer);

  std::vector<std::string> arguments(1);
  for (const char letter : line) {
    if (letter == '\n') {
      arguments.emplace_back();
    } else {
      arguments.back() += letter;
    }
  }
  CliRequest request;
  parseArguments(arguments, request);
  return 0;
}
