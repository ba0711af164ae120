#include "shell/out_of_memory.h"

#include <windows.h>

#include <cstdlib>
#include <new>

namespace {

// Freed when memory runs out, so that the message can be shown.
constexpr size_t kReservedBytes = size_t{1024} * 1024;
void *reservedMemory = nullptr;

// new_handler: reports and ends.
[[noreturn]] void reportAndEnd() {
  std::free(reservedMemory);
  MessageBoxW(nullptr, L"There is not enough memory. Korilan has to end.", L"Korilan", MB_ICONERROR | MB_TASKMODAL);
  TerminateProcess(GetCurrentProcess(), 1);
  std::abort();
}

} // namespace

void endWhenOutOfMemory() {
  reservedMemory = std::malloc(kReservedBytes);
  std::set_new_handler(reportAndEnd);
}
