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
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

#include <fcntl.h>
#ifdef _WIN32
#include "base/windows_text.h"

#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

enum ExitStatus { kAllShown = 0, kSomeNotShown = 1, kWrongUsage = 2 };

bool printInfo(const CliRequest &request) {
  bool allShown = true;
  const auto file = std::make_unique<OpenedFile>();
  for (const std::string &path : request.files) {
    openFile(*file, path);
    std::string failure = refusal(file->viewer);
    if (failure.empty() && !showFrame(*file, request.frame)) {
      failure = path + ": has no frame " + std::to_string(request.frame);
    }
    const bool hasLine = request.json || failure.empty();
    if (hasLine && !printLine(stdout, request.json ? infoJson(file->viewer) : infoText(file->viewer))) return false;
    if (failure.empty()) continue;
    allShown = false;
    printError(failure);
  }
  return allShown;
}

// A reader that has seen enough, as a pager that was left, is no failure to speak of.
bool readerIsGone() {
#ifdef _WIN32
  constexpr unsigned long kBrokenPipe = 109;
  constexpr unsigned long kPipeClosing = 232;
  return _doserrno == kBrokenPipe || _doserrno == kPipeClosing;
#else
  return errno == EPIPE;
#endif
}

// Bitmaps to standard output, and the same line ends everywhere; and no file that is opened later takes the place of a
// standard stream that whoever started the program has closed.
void prepareStandardStreams() {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
#else
  int descriptor = 0;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
  if (descriptor > STDERR_FILENO) close(descriptor);
#endif
}

// Only bad_alloc of the library can end here.
[[noreturn]] void endForLackOfMemory() {
  (void)std::fputs("korilan-cli: there is not enough memory\n", stderr);
  std::_Exit(kSomeNotShown);
}

int run(const std::vector<std::string> &arguments) {
  std::set_terminate(endForLackOfMemory);
  prepareStandardStreams();
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
  const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  // The other commands have said so themselves.
  const bool told = request.command != CliCommand::kInfo && request.command != CliCommand::kHelp;
  if (!written && !told && !readerIsGone()) printError("korilan-cli: standard output could not be written");
  return allShown && written ? kAllShown : kSomeNotShown;
}

} // namespace

#ifdef _WIN32
int wmain(int argumentCount, wchar_t **argumentTexts) {
  std::vector<std::string> arguments;
  for (int i = 1; i < argumentCount; ++i) arguments.push_back(toUtf8(argumentTexts[i]));
  return run(arguments);
}
#else
int main(int argumentCount, char **argumentTexts) {
  return run({argumentTexts + std::min(argumentCount, 1), argumentTexts + argumentCount});
}
#endif
