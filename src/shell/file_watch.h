// Watches the folder of the open file, or where it is to be made again if it was deleted. The system signals changes:
// nothing is polled, and nothing happens without one.
#pragma once

#include "state/viewer_state.h"

#include <windows.h>

#include <array>
#include <string>

struct FileWatch {
  std::string folderPath;               // of the followed file; empty: none
  bool remote = false;                  // on a network drive: nothing is watched
  HANDLE folder = INVALID_HANDLE_VALUE; // that folder, or the nearest one above it that exists
  std::string missing;                  // its first part that `folder` lacks; empty: none
  OVERLAPPED request{};                 // the system fills `changes` and sets its event
  std::array<DWORD, 4096> changes{};    // FILE_NOTIFY_INFORMATION, one after another
};

// Waits until a message is pending or a change is reported, and looks at the followed file if that is due. Returns
// whether it did: the window is then to be synced. What changes during a run, a load or a dialog waits for the next
// call.
bool waitForMessages(FileWatch &watch, ViewerState &viewer);

void stopWatching(FileWatch &watch);
