// korilan-cli: the viewer without a window.
#include "base/paths.h"
#include "cli/arguments.h"
#include "cli/convert.h"
#include "cli/film.h"
#include "cli/info.h"
#include "cli/interrupt.h"
#include "cli/opened_file.h"
#include "cli/output.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

enum ExitStatus { kAllShown = 0, kSomeNotShown = 1, kWrongUsage = 2 };

bool printInfo(const CliRequest &request) {
  bool allShown = true;
  const auto file = std::make_unique<OpenedFile>();
  for (const std::string &path : request.files) {
    if (interrupted()) return false;
    openFile(*file, path);
    std::string failure = refusal(file->viewer);
    if (failure.empty() && !showFrame(*file, request.frame)) {
      failure = path + ": has no frame " + std::to_string(request.frame);
    }
    if (request.json) std::printf("%s\n", infoJson(file->viewer).c_str());
    if (failure.empty()) {
      if (!request.json) std::printf("%s\n", infoText(file->viewer).c_str());
      continue;
    }
    allShown = false;
    printError(failure);
  }
  return allShown;
}

// The program throws nothing itself: only the library's bad_alloc ends here.
[[noreturn]] void endForLackOfMemory() {
  (void)std::fputs("korilan-cli: there is not enough memory\n", stderr);
  std::_Exit(kSomeNotShown);
}

} // namespace

int main(int argumentCount, char **argumentTexts) {
  std::set_terminate(endForLackOfMemory);
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY); // for bitmaps, and the same line ends on all systems
#endif
  const std::vector<std::string> arguments(argumentTexts + std::min(argumentCount, 1), argumentTexts + argumentCount);
  CliRequest request;
  if (const std::string wrong = parseArguments(arguments, request); !wrong.empty()) {
    printError("korilan-cli: " + wrong);
    return kWrongUsage;
  }
  for (std::string &path : request.files) path = systemPath(std::move(path));
  watchForInterrupt();
  bool allShown = true;
  switch (request.command) {
  case CliCommand::kHelp: std::printf("%s", kCliHelp); break;
  case CliCommand::kInfo: allShown = printInfo(request); break;
  case CliCommand::kConvert: allShown = convertFiles(request); break;
  case CliCommand::kVideo: allShown = writeVideo(request); break;
  case CliCommand::kSound: allShown = writeSound(request); break;
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    printError("korilan-cli: standard output could not be written");
    allShown = false;
  }
  if (interrupted()) return kInterruptedStatus;
  return allShown ? kAllShown : kSomeNotShown;
}
