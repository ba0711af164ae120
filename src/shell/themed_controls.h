// The controls of the system's present style come from a library of their own. Dialogs ask for it when they open; the
// main window has nothing that would look different, and stands sooner without it.
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
