#include "base/threads.h"

#include <system_error>

// Built with exceptions: the library's refusal becomes false.
bool startThread(std::thread &thread, const std::function<void()> &work) {
  try {
    thread = std::thread(work);
  } catch (const std::system_error &) {
    return false;
  }
  return true;
}
