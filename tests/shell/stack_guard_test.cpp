// The guard of the stack, in a program that starts itself: with the word "break" it writes beyond an array, with "show"
// it ends with a part of the guard as its exit code.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

extern void *stackGuard asm("__stack_chk_guard");

namespace {

constexpr DWORD kStackBufferOverrun = 0xC0000409;

DWORD exitCodeOf(const std::string &program, const char *word) {
  std::string line = "\"" + program + "\" " + word;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) return 0;
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  return code;
}

// As a fault would: by a way that hides the array's end from the compiler.
__attribute__((noinline)) int breakStack() {
  char letters[8];
  char *volatile hidden = letters;
  for (size_t i = 0; i < 80; ++i) hidden[i] = 'x';
  return letters[0];
}

} // namespace

int main(int argumentCount, char **arguments) {
  if (argumentCount == 2 && std::strcmp(arguments[1], "break") == 0) return breakStack();
  const auto guard = reinterpret_cast<uintptr_t>(stackGuard);
  if (argumentCount == 2) return static_cast<int>(guard >> 32);
  const DWORD shown = exitCodeOf(arguments[0], "show");
  const DWORD broken = exitCodeOf(arguments[0], "break");
  const bool cannotBeText = (guard & 0xFF) == 0;
  const bool differs = shown != 0 && shown != exitCodeOf(arguments[0], "show");
  std::printf("ends as text would %d, differs %d, a broken stack ends with %lX\n", cannotBeText, differs, broken);
  return cannotBeText && differs && broken == kStackBufferOverrun ? 0 : 1;
}
