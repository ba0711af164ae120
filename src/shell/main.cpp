// The Windows program: creates the window, passes the command line to the viewer, runs the message loop.
#include "base/paths.h"
#include "base/windows_text.h"
#include "core/commands.h"
#include "shell/main_window.h"
#include "shell/out_of_memory.h"
#include "shell/platform_windows.h"
#include "shell/scale_functions.h"
#include "shell/system_library.h"
#include "state/viewer_state.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace {

constexpr std::string_view kBlanks = " \t";

// The arguments. The program's name comes first, in quotes if it contains a blank.
std::string_view withoutProgramName(std::string_view line) {
  const bool quoted = line.starts_with('"');
  const size_t end = quoted ? line.find('"', 1) : line.find_first_of(kBlanks);
  if (end == std::string_view::npos) return {};
  line.remove_prefix(end + (quoted ? 1 : 0));
  const size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

// Has all libraries loaded from the system's folder, those that the system's own libraries load, too: a file beside the
// program cannot stand in for one. Windows 7 may lack the function.
void restrictLibrarySearch() {
  const auto restrict = libraryFunction<decltype(SetDefaultDllDirectories)>(GetModuleHandleW(L"kernel32.dll"),
                                                                            "SetDefaultDllDirectories");
  if (restrict != nullptr) restrict(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int showCommand) {
  restrictLibrarySearch();
  HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
  endWhenOutOfMemory();
  if (!systemIsSupported()) {
    MessageBoxW(nullptr, L"Korilan needs Windows 10 version 1607 or later.", L"Korilan", MB_ICONERROR);
    return 1;
  }
  ViewerState viewer;
  MainWindow main;
  viewer.platform = windowsPlatform(main);
  if (!createMainWindow(main, viewer, instance)) return 1;
  startViewer(viewer, systemPath(std::string(withoutProgramName(toUtf8(GetCommandLineW())))));
  showMainWindow(main, showCommand);
  return runMessageLoop(main);
}
