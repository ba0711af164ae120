// The menus of the main window and their shortcuts.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <cstddef>
#include <string>

// The menu that menuView enables as a whole.
inline constexpr const char *kViewMenu = "&View";

using MenuCommand = void (*)(ViewerState &viewer);

enum class ShortcutUse {
  kNone,
  kKeyAlone,
  kWithCtrl,
  kWithCtrlOrAlone, // alone only if the preference is checked
  kWithCtrlAndShift,
};

struct Shortcut {
  ShortcutUse use = ShortcutUse::kNone;
  int code = 0; // virtual-key code
};

struct MenuRow {
  const char *menu;            // caption of the menu that holds the item
  const char *caption;         // nullptr: a separator; "&" precedes the access key
  MenuItem WindowModel::*item; // what enables and checks it
  MenuCommand command;         // nullptr: a separator or a submenu
  Shortcut shortcut;

  // Of a submenu: its items, and what runs the one of that index.
  ChoiceMenu WindowModel::*choices = nullptr;
  void (*choose)(ViewerState &viewer, size_t index) = nullptr;
};

inline constexpr size_t kMenuRowCount = 36;

// In the order shown; the rows of a menu are adjacent.
extern const std::array<MenuRow, kMenuRowCount> kMenuRows;

// The shortcut as shown in menus, "Ctrl+O"; empty if the row has none.
std::string shortcutText(const MenuRow &row);

// A caption without the marks of its access keys.
std::string plainCaption(const char *caption);

// Whether the row's item and its menu are enabled.
bool menuRowEnabled(const WindowModel &window, const MenuRow &row);

// Runs the command of the row. Does nothing if the index is out of range or the row disabled; a load allows only Exit.
void runMenuRow(ViewerState &viewer, size_t index);

// Runs an item of the submenu that the row is. Does nothing if there is none, if the row is disabled or during a load.
void runMenuChoice(ViewerState &viewer, size_t index, size_t choice);
