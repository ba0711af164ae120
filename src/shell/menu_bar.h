// The menus of kMenuRows as the window system has them.
#pragma once

#include "state/window_model.h"

#include <windows.h>

#include <optional>

// In the state of a new WindowModel.
HMENU buildMenuBar();

// Brings the menus from the state of `shown` to that of `model`. Submenus are filled here, too.
void syncMenuBar(HWND window, HMENU menuBar, const WindowModel &model, const WindowModel &shown);

// The row and the item of a submenu with that command number.
struct MenuChoice {
  size_t row;
  size_t choice;
};
std::optional<MenuChoice> menuChoiceOf(UINT command);
