// The Windows program: makes the window, hands the command line to the viewer, runs the message loop.
#include "core/commands.h"
#include "state/viewer_state.h"
#include "shell/main_window.h"
#include "shell/platform_windows.h"
#include "base/resource_counts.h"
#include "shell/window_controls.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kBlanks = " \t";

// All that follows the program's name, which stands first and in quotes where it holds a blank.
std::string_view withoutProgramName(std::string_view line) {
  const bool quoted = line.starts_with('"');
  const size_t end = quoted ? line.find('"', 1) : line.find_first_of(kBlanks);
  if (end == std::string_view::npos) return {};
  line.remove_prefix(end + (quoted ? 1 : 0));
  const size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

int runMessageLoop(MainWindow &main) {
  MSG message;
  while (true) {
    // Nothing waits: all that was painted is on the screen.
    if (!main.labelsMade && !PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) provideLabels(main);
    if (GetMessageA(&message, nullptr, 0, 0) <= 0) break;
    handleMessage(main, message);
  }
  return static_cast<int>(message.wParam);
}

// Given back when memory runs out, so that there is enough for the message.
constexpr size_t kReservedBytes = size_t{1024} * 1024;
void *reservedMemory = nullptr;

// What has no other answer to lacking memory ends here, instead of in a fault.
[[noreturn]] void endForLackOfMemory() {
  std::free(reservedMemory);
  MessageBoxA(nullptr, "There is not enough memory. Korilan has to end.", "Korilan", MB_ICONERROR | MB_TASKMODAL);
  TerminateProcess(GetCurrentProcess(), 1);
  std::abort();
}

} // namespace

// The manifest makes UTF-8 the code page of the A functions, so all texts pass through as they are.
int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int showCommand) {
  HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
  reservedMemory = std::malloc(kReservedBytes);
  std::set_new_handler(endForLackOfMemory);
  ViewerState viewer;
  MainWindow main;
  viewer.platform = windowsPlatform(main);
  if (!createMainWindow(main, viewer, instance)) return 1;
  std::string commandLine(withoutProgramName(GetCommandLineA()));
  std::replace(commandLine.begin(), commandLine.end(), '/', '\\'); // a path takes either; names are cut at the one
  startViewer(viewer, commandLine);
  showMainWindow(main, showCommand);
  const int exitCode = runMessageLoop(main);
  writeResourceCounts();
  return exitCode;
}
