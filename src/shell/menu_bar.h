// The menus of kMenuRows as the window system has them.
#pragma once

#include "state/window_model.h"

#include <windows.h>

#include <optional>

// In the state of a new WindowModel.
HMENU buildMenuBar();

// Brings the menus from the state of `shown` to that of `model`. Submenus are filled here, too.
void syncMenuBar(HWND window, HMENU menuBar, const WindowModel &model, const WindowModel &shown);

// The item of a submenu that a command number stands for.
struct MenuChoice {
  size_t row;
  size_t choice;
};
std::optional<MenuChoice> menuChoiceOf(UINT command);
