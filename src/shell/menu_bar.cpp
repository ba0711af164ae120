#include "shell/menu_bar.h"

#include "base/windows_text.h"
#include "core/menus.h"
#include "shell/control_ids.h"

#include <string>
#include <string_view>

namespace {

constexpr UINT greyed(bool enabled) { return static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED); }
constexpr UINT ticked(bool checked) { return static_cast<UINT>(checked ? MF_CHECKED : MF_UNCHECKED); }

UINT commandOf(size_t row) { return kFirstMenuCommand + static_cast<UINT>(row); }

void appendRow(HMENU menu, const MenuRow &row, UINT command) {
  if (row.caption == nullptr) {
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    return;
  }
  const std::string shortcut = shortcutText(row);
  const std::string text = row.caption + (shortcut.empty() ? "" : "\t" + shortcut);
  AppendMenuW(menu, MF_STRING | greyed(menuRowEnabled({}, row)), command, toUtf16(text).c_str());
  if (row.choices == nullptr) return;
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_SUBMENU;
  item.hSubMenu = CreatePopupMenu();
  SetMenuItemInfoW(menu, command, FALSE, &item);
}

void fillSubmenu(HMENU menuBar, size_t row, const ChoiceMenu &choices) {
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_SUBMENU;
  GetMenuItemInfoW(menuBar, commandOf(row), FALSE, &item);
  while (DeleteMenu(item.hSubMenu, 0, MF_BYPOSITION)) {
  }
  UINT command = kFirstChoiceCommand + static_cast<UINT>(row * kMaxChoices);
  for (size_t choice = 0; choice < choices.captions.size() && choice < kMaxChoices; ++choice, ++command) {
    const std::string &caption = choices.captions[choice];
    const UINT state = caption.empty() ? MF_SEPARATOR : ticked(static_cast<int32_t>(choice) == choices.checked);
    AppendMenuW(item.hSubMenu, MF_STRING | state, command, toUtf16(caption).c_str());
  }
}

void syncViewMenu(HWND window, HMENU menuBar, bool enabled) {
  UINT position = 0;
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    const std::string_view menu = kMenuRows[index].menu;
    if (index > 0 && menu != kMenuRows[index - 1].menu) ++position;
    if (menu == kViewMenu) break;
  }
  EnableMenuItem(menuBar, position, MF_BYPOSITION | greyed(enabled));
  DrawMenuBar(window);
}

} // namespace

HMENU buildMenuBar() {
  const HMENU menuBar = CreateMenu();
  HMENU menu = nullptr;
  std::string_view menuName;
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    const MenuRow &row = kMenuRows[index];
    if (row.menu != menuName) {
      menuName = row.menu;
      menu = CreatePopupMenu();
      AppendMenuW(menuBar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), toUtf16(row.menu).c_str());
    }
    appendRow(menu, row, commandOf(index));
  }
  return menuBar;
}

void syncMenuBar(HWND window, HMENU menuBar, const WindowModel &model, const WindowModel &shown) {
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    const MenuRow &row = kMenuRows[index];
    if (row.item == nullptr) continue;
    const bool enabled = menuRowEnabled(model, row);
    if (enabled != menuRowEnabled(shown, row)) {
      EnableMenuItem(menuBar, commandOf(index), MF_BYCOMMAND | greyed(enabled));
    }
    const bool checked = (model.*row.item).checked;
    if (checked != (shown.*row.item).checked) CheckMenuItem(menuBar, commandOf(index), MF_BYCOMMAND | ticked(checked));
    if (row.choices != nullptr && model.*row.choices != shown.*row.choices) {
      fillSubmenu(menuBar, index, model.*row.choices);
    }
  }
  if (model.menuView.enabled != shown.menuView.enabled) syncViewMenu(window, menuBar, model.menuView.enabled);
}

std::optional<MenuChoice> menuChoiceOf(UINT command) {
  if (command < kFirstChoiceCommand) return std::nullopt;
  const size_t number = command - kFirstChoiceCommand;
  return MenuChoice{.row = number / kMaxChoices, .choice = number % kMaxChoices};
}
