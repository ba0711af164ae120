// The controls of the system's present style come from a library of their own. Dialogs and the frame bar ask for it
// when they are made; what else the main window has would look the same, and the window stands sooner without it.
#pragma once

#include <windows.h>

// While this lives, controls are made in the present style.
class ThemedControls {
public:
  ThemedControls();
  ~ThemedControls();
  ThemedControls(const ThemedControls &) = delete;
  ThemedControls &operator=(const ThemedControls &) = delete;

private:
  ULONG_PTR cookie = 0; // 0: the system has no such style
};
