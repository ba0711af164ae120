// The menus of the main window and the keys of their commands.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstddef>
#include <string>

// The one menu that is enabled and disabled as a whole, by menuView.
inline constexpr const char *kViewMenu = "&View";

using MenuCommand = void (*)(ViewerState &viewer);

enum class ShortcutUse {
  kNone,
  kKeyAlone,
  kWithCtrl,
  kWithCtrlOrAlone, // alone only where the preference for it is ticked
};

struct Shortcut {
  ShortcutUse use = ShortcutUse::kNone;
  int code = 0; // virtual-key code; that of a letter is its capital
};

struct MenuRow {
  const char *menu;            // caption of the menu that holds the item
  const char *caption;         // nullptr: a line between groups; "&" stands before the access key
  MenuItem WindowModel::*item; // what enables and checks it
  MenuCommand command;
  Shortcut shortcut;
};

inline constexpr size_t kMenuRowCount = 21;

// In the order shown. Rows of one menu stand together.
extern const std::array<MenuRow, kMenuRowCount> kMenuRows;

// The shortcut as people write it, "Ctrl+O"; empty where the row has none.
std::string shortcutText(const MenuRow &row);

// A caption without the marks of its access keys.
std::string plainCaption(const char *caption);

// Whether the user can choose the row now: its item is enabled, and so is the menu that holds it.
bool menuRowEnabled(const WindowModel &window, const MenuRow &row);

// Runs the command of the row with that index; an index that is out of range or cannot be chosen now does nothing.
// While a load is under way only Exit does something.
void runMenuRow(ViewerState &viewer, size_t index);
