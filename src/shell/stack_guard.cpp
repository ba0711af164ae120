// The word that stands between a procedure's arrays and its return address, and what happens where it was overwritten.
// The compiler's own library asks the system's cryptography for that word, whose libraries load longer than a picture
// opens; the place of the program and the moment of its start cannot be foretold either.
#include <windows.h>

#include <cstdint>
#include <initializer_list>
#include <intrin.h>

// By the names that the compiler knows them by.
extern void *stackGuard asm("__stack_chk_guard");
[[noreturn]] void endBrokenStack() asm("__stack_chk_fail");

void *stackGuard = nullptr;

void endBrokenStack() {
  // The system ends the program at this interrupt, without running any more of its code.
  constexpr int kStackCookieFailure = 2; // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
  asm volatile("int $0x29" : : "c"(kStackCookieFailure));
  __builtin_unreachable();
}

namespace {

// Before the constructors of the program; its own guard would change while it runs.
__attribute__((constructor(101), no_stack_protector)) void drawGuard() {
  FILETIME time{};
  LARGE_INTEGER count{};
  GetSystemTimeAsFileTime(&time);
  QueryPerformanceCounter(&count);
  uint64_t word = uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  for (const uint64_t part : {static_cast<uint64_t>(count.QuadPart), static_cast<uint64_t>(__rdtsc()),
                              uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId(),
                              static_cast<uint64_t>(reinterpret_cast<uintptr_t>(&time)),
                              static_cast<uint64_t>(reinterpret_cast<uintptr_t>(&drawGuard))}) {
    word = (word ^ part) * 0x9E3779B97F4A7C15; // every bit of what came before moves about half of the bits
    word ^= word >> 32;
  }
  constexpr uint64_t kTextEnd = 0xFF; // no text that runs over can hold the word
  stackGuard = reinterpret_cast<void *>(word & ~kTextEnd);
}

} // namespace
