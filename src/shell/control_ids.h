// Numbers of the main window's controls and menu commands.
#pragma once

enum ControlId {
  kMainViewId = 100,
  kLabel1Id = 101, // Label2 to Label4 follow
};

// Command number of the first row of kMenuRows; the others follow in order.
inline constexpr unsigned kFirstMenuCommand = 1000;
