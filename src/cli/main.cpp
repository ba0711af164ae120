// korilan-cli: the viewer without a window.
#include "base/disk_files.h"
#include "cli/arguments.h"
#include "cli/convert.h"
#include "cli/help.h"
#include "cli/info.h"
#include "cli/inputs.h"
#include "cli/interrupt.h"
#include "cli/opened_file.h"
#include "cli/output.h"
#include "cli/single_file.h"
#include "core/file_kinds.h"
#include "core/version.h"

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

bool printInfo(const CliRequest &request, const std::vector<CliInput> &inputs) {
  bool allShown = true;
  const auto file = std::make_unique<OpenedFile>();
  for (const CliInput &input : inputs) {
    openInput(*file, input, request.palette);
    std::string failure = refusal(file->viewer);
    if (failure.empty() && !showFrame(*file, request.frame)) {
      file->viewer.loadError = "has no frame " + std::to_string(request.frame);
      file->viewer.pictureShown = kFalse;
      failure = refusal(file->viewer);
    }
    const bool hasLine = request.json || failure.empty();
    if (hasLine && !printLine(stdout, request.json ? infoJson(file->viewer) : infoText(file->viewer))) return false;
    if (failure.empty()) continue;
    allShown = false;
    printError(failure);
  }
  return allShown;
}

void printKinds() {
  for (const FileKind &kind : kFileKinds) {
    std::printf("%s\t%s\t%s\n", kind.extension, kind.traits.player != nullptr ? "video" : "picture",
                kind.typeDescription);
  }
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

// Pictures from standard input and to standard output, and the same line ends everywhere; and no file that is opened
// later takes the place of a standard stream that whoever started the program has closed: writing to one fails.
void prepareStandardStreams() {
#ifdef _WIN32
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#else
  int descriptor = 0;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDONLY);
  if (descriptor > STDERR_FILENO) close(descriptor);
#endif
}

// Only bad_alloc of the library can end here.
[[noreturn]] void endForLackOfMemory() {
  (void)std::fputs("korilan-cli: there is not enough memory\n", stderr);
  std::_Exit(kSomeNotShown);
}

int endWrongUsage(const std::string &wrong) {
  printError("korilan-cli: " + wrong);
  return kWrongUsage;
}

// Returns whether all files were shown or written.
bool runCommand(const CliRequest &request, const std::vector<CliInput> &inputs) {
  switch (request.command) {
  case CliCommand::kInfo: return printInfo(request, inputs);
  case CliCommand::kConvert: return convertFiles(request, inputs);
  default: return writeSingleFile(request, inputs.front());
  }
}

int run(const std::vector<std::string> &arguments) {
  std::set_terminate(endForLackOfMemory);
  prepareStandardStreams();
  CliRequest request;
  if (const std::string wrong = parseArguments(arguments, request); !wrong.empty()) return endWrongUsage(wrong);
  watchForInterrupt();
  bool allShown = true;
  if (request.command == CliCommand::kHelp) {
    std::printf("%s", kCliHelp);
  } else if (request.command == CliCommand::kVersion) {
    std::printf("korilan-cli %s\n", KORILAN_VERSION);
  } else if (request.command == CliCommand::kKinds) {
    printKinds();
  } else {
    const std::vector<CliInput> inputs = findInputs(request);
    if (const std::string wrong = tooManyFiles(request, inputs.size()); !wrong.empty()) return endWrongUsage(wrong);
    const std::string noPalette = request.palette.empty() ? "" : openFailure(request.palette);
    if (!noPalette.empty()) printError(request.palette + ": " + noPalette);
    allShown = noPalette.empty() && runCommand(request, inputs);
  }
  const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  // The other commands have said so themselves.
  const bool told = !request.outPath.empty() || request.command == CliCommand::kConvert;
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
