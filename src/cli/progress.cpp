#include "cli/progress.h"

#include "base/paths.h"
#include "base/text.h"
#include "cli/output.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr size_t kLineLetters = 79;

// Overwrites the line, padded with blanks instead of control codes.
void writeLine(Progress &progress, const std::string &text) {
  const std::string line = withoutControls(text);
  const size_t letters = characterCount(line);
  const std::string blanks(progress.width - std::min(progress.width, letters), ' ');
  (void)std::fputs(("\r" + line + blanks).c_str(), stderr);
  (void)std::fflush(stderr);
  progress.width = letters;
}

void clearLine(Progress &progress) {
  writeLine(progress, "");
  (void)std::fputs("\r", stderr);
}

} // namespace

std::string progressLine(size_t number, size_t files, const std::string &path) {
  std::string line = "[" + std::to_string(number) + "/" + std::to_string(files) + "] ";
  const std::string_view name = fileNameOf(path);
  line += lastCharacters(name, kLineLetters - std::min(line.size(), kLineLetters));
  return line;
}

void beginProgress(Progress &progress, size_t files) {
  progress.files = files;
  progress.shown = files > 1 && isTerminal(stderr);
}

void showProgress(Progress &progress, const std::string &path) {
  if (!progress.shown) return;
  const std::scoped_lock lock(progress.mutex);
  writeLine(progress, progressLine(progress.done + 1, progress.files, path));
}

void countProgress(Progress &progress, const std::string &failure) {
  const std::scoped_lock lock(progress.mutex);
  ++progress.done;
  if (failure.empty()) return;
  ++progress.failed;
  if (progress.shown) clearLine(progress);
  printError(failure);
}

void countWritten(Progress &progress) {
  const std::scoped_lock lock(progress.mutex);
  ++progress.written;
}

void endProgress(Progress &progress) {
  const std::scoped_lock lock(progress.mutex);
  if (progress.shown) clearLine(progress);
  if (progress.files <= 1) return;
  const auto counted = [](size_t count) { return withThousandsSeparators(static_cast<int64_t>(count)); };
  printError(counted(progress.written) + " written, " + counted(progress.failed) + " not");
}
