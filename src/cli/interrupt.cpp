#include "cli/interrupt.h"

#include "base/file_ops.h"

#include <csignal>
#include <cstdlib>

namespace {

#ifdef _WIN32
constexpr int kEnding[] = {SIGINT, SIGTERM, SIGBREAK};
#else
constexpr int kEnding[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
#endif

void end(int signal) {
  constexpr int kStatusOfSignals = 128; // as shells count
  removeTemporaries();
  std::_Exit(kStatusOfSignals + signal);
}

} // namespace

void watchForInterrupt() {
#ifndef _WIN32
  // The write fails instead, and the unfinished file is removed.
  for (const int signal : {SIGPIPE, SIGXFSZ}) (void)std::signal(signal, SIG_IGN);
#endif
  for (const int signal : kEnding) {
    // Whoever started the program may have had it ignore the signal.
    if (std::signal(signal, end) == SIG_IGN) (void)std::signal(signal, SIG_IGN);
  }
}
