#include "core/keys.h"

#include "core/commands.h"
#include "core/folder_navigation.h"
#include "core/menus.h"

#include <array>

namespace {

constexpr int kEscape = 27;

struct PagingKey {
  int code;
  MenuCommand command;
};

constexpr std::array<PagingKey, 4> kPagingKeys{{
    {33, openPreviousFile}, // PageUp
    {34, openNextFile},     // PageDown
    {36, openFirstFile},    // Home
    {35, openLastFile},     // End
}};

// Whether the key, as it is pressed, is the row's shortcut.
bool isShortcut(const ViewerState &viewer, const MenuRow &row, KeyPress key) {
  if (row.shortcut.code != key.code || key.alt) return false;
  switch (row.shortcut.use) {
  case ShortcutUse::kNone: return false;
  case ShortcutUse::kKeyAlone: return !key.ctrl;
  case ShortcutUse::kWithCtrl: return key.ctrl;
  case ShortcutUse::kWithCtrlOrAlone: return key.ctrl || viewer.preferences.Check4 == kTrue;
  }
  return false;
}

} // namespace

bool pressKey(ViewerState &viewer, KeyPress key) {
  for (const PagingKey &row : kPagingKeys) {
    if (row.code != key.code) continue;
    row.command(viewer);
    return true;
  }
  if (key.code == kEscape && viewer.preferences.Check3 == kTrue) {
    menuExit_Click(viewer);
    return true;
  }
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    if (!isShortcut(viewer, kMenuRows[index], key)) continue;
    runMenuRow(viewer, index);
    return true;
  }
  return false;
}
