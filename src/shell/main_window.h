// The main window: the viewer's WindowModel as Windows shows it.
#pragma once

#include "state/viewer_state.h"
#include "shell/main_view.h"
#include "shell/video_buttons.h"
#include "shell/window_layout.h"

#include <windows.h>

#include <array>

struct MainWindow {
  ViewerState *viewer = nullptr;
  HWND window = nullptr; // nullptr once destroyed
  HMENU menuBar = nullptr;
  MainView mainView;
  std::array<HWND, 4> labels{}; // Label1 to Label4; nullptr until first needed, as are all below
  HWND readout = nullptr;
  HWND readoutSwatch = nullptr;
  bool labelsMade = false;         // with the read-out
  std::array<HWND, 16> swatches{}; // Label5
  VideoButtons videoButtons;       // Image1 and Image2
  HWND frameBar = nullptr;         // HScroll1
  bool videoControlsMade = false;
  HFONT font = nullptr;
  TextMetrics metrics;

  WindowModel shown;            // what the controls show at present
  DWORD lastEventPass = 0;      // tick count of the last pass over waiting events during a load
  bool placed = false;          // the window stands in its place for the first time
  bool fitWhenRestored = false; // MainView changed its size while the window was maximised or minimised
};

// Makes the window with MainView, still hidden. Both records must outlive it. Returns false when the system
// refuses.
bool createMainWindow(MainWindow &main, ViewerState &viewer, HINSTANCE instance);

// Shows the window for the first time, in the middle of the work area.
void showMainWindow(MainWindow &main, int showCommand);

// Hands one message of the queue to its window, or to the keyboard of the main window.
void handleMessage(MainWindow &main, MSG &message);
