// Full screen: MainView alone on the whole monitor.
#pragma once

#include <windows.h>

struct MainWindow;

struct FullScreen {
  // The window before full screen.
  WINDOWPLACEMENT placement{};
  RECT place{};
  DWORD style = 0;
  SIZE content{}; // size of its content

  bool displayChanged = false; // since then: `place` may be off the screen
  POINT pointer{};             // last known place of the pointer
  bool pointerHidden = false;
};

// Timer of the main window; its end means that the pointer may rest.
inline constexpr UINT_PTR kPointerTimer = 1;

// Stores the window for its return. Call it before `main.shown` changes to full screen.
void storeWindow(MainWindow &main);

// Enters or leaves full screen, as `main.shown` says. The window returns to its place to the pixel, then follows a
// picture that has changed meanwhile.
void turnFullScreen(MainWindow &main);

// In full screen: covers the whole monitor after something else has sized or moved the window.
void coverMonitor(const MainWindow &main);

// In full screen: the mouse may have moved. Returns true if the pointer is hidden.
bool trackPointer(MainWindow &main);

// Hides a pointer that rests over the picture.
void hideRestingPointer(MainWindow &main);
