#include "cli/interrupt.h"

#include <atomic>
#include <csignal>

namespace {

std::atomic<bool> noted{false};
static_assert(std::atomic<bool>::is_always_lock_free); // a signal handler sets it

void note(int signal) {
  noted = true;
  (void)std::signal(signal, SIG_DFL);
}

} // namespace

void watchForInterrupt() {
  for (const int signal : {SIGINT, SIGTERM}) {
    // Keeps a signal ignored if the parent process has set it so.
    if (std::signal(signal, note) == SIG_IGN) (void)std::signal(signal, SIG_IGN);
  }
}

bool interrupted() { return noted; }
