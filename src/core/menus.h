// The menus of the main window.
#pragma once

#include "core/viewer_state.h"

#include <array>
#include <cstddef>

// The one menu that is enabled and disabled as a whole, by menuView.
inline constexpr const char *kViewMenu = "View";

using MenuCommand = void (*)(ViewerState &viewer);

struct MenuRow {
  const char *menu;            // caption of the menu that holds the item
  const char *caption;         // nullptr: a line between groups
  MenuItem WindowModel::*item; // what enables and checks it
  MenuCommand command;         // nullptr: not to be had yet, the item is always grey
};

inline constexpr size_t kMenuRowCount = 20;

// In the order shown. Rows of one menu stand together.
extern const std::array<MenuRow, kMenuRowCount> kMenuRows;

// Whether the user can choose the row now: its command exists, its item is enabled, and so is the menu that holds it.
bool menuRowEnabled(const WindowModel &window, const MenuRow &row);

// Runs the command of the row with that index; an index that is out of range or cannot be chosen now does nothing.
void runMenuRow(ViewerState &viewer, size_t index);
