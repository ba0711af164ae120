// The main window: shows the viewer's WindowModel.
#pragma once

#include "shell/file_watch.h"
#include "shell/full_screen.h"
#include "shell/main_view.h"
#include "shell/sound_device.h"
#include "shell/video_buttons.h"
#include "shell/window_layout.h"
#include "state/viewer_state.h"

#include <windows.h>

#include <array>

struct MainWindow {
  ViewerState *viewer = nullptr;
  HWND window = nullptr; // nullptr after its destruction
  HMENU menuBar = nullptr;
  MainView mainView;
  std::array<HWND, 4> labels{}; // Label1 to Label4; nullptr until created, like all controls below
  HWND readout = nullptr;
  HWND readoutSwatch = nullptr;
  std::array<HWND, 16> swatches{}; // Label5
  VideoButtons videoButtons;       // Image1 and Image2
  HWND frameBar = nullptr;         // HScroll1
  bool videoControlsMade = false;
  HFONT font = nullptr;
  TextMetrics metrics;
  SoundDevice sound;
  FileWatch fileWatch;

  SIZE fittedSize{}; // outer size that the program gave the window; any other one is the user's

  WindowModel shown;       // what the controls show
  DWORD lastEventPass = 0; // tick count of the last event pass
  bool moving = false;     // the user moves or resizes the window
  FullScreen fullScreen;
  bool opensMaximised = false;                  // as the last window was closed
  POINT evadedTo{CW_USEDEFAULT, CW_USEDEFAULT}; // where it was put because another one stood in its place
  bool fitLater = false;                        // a fitting waits until the window is restored or its move has ended
};

// Creates the hidden window and MainView; both records must outlive it. Returns false if the system refuses.
bool createMainWindow(MainWindow &main, ViewerState &viewer, HINSTANCE instance);

// Shows the window sized to its content, paints the picture, then has the labels made.
void showMainWindow(MainWindow &main, int showCommand);

// Runs a key's command, or dispatches the message to its window.
void handleMessage(MainWindow &main, MSG &message);

// Handles messages until the window is destroyed; returns the exit code.
int runMessageLoop(MainWindow &main);
