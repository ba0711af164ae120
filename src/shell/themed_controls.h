// Activates common controls 6 while in scope; loading it delays start-up. Used for dialogs, video buttons and the frame
// bar; the other controls look the same without it.
#pragma once

#include <windows.h>

// Controls created while this lives are themed.
class ThemedControls {
public:
  ThemedControls();
  ~ThemedControls();
  ThemedControls(const ThemedControls &) = delete;
  ThemedControls &operator=(const ThemedControls &) = delete;

private:
  ULONG_PTR cookie = 0; // 0: not activated
};
