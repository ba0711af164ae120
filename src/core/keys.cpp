#include "core/keys.h"

#include "core/commands.h"
#include "core/folder_navigation.h"
#include "core/menus.h"
#include "video/video_mode.h"

#include <array>
#include <span>

namespace {

constexpr int kEscape = 27;

struct CommandKey {
  int code;
  MenuCommand command;
};

constexpr std::array<CommandKey, 4> kPagingKeys{{
    {33, openPreviousFile}, // PageUp
    {34, openNextFile},     // PageDown
    {36, openFirstFile},    // Home
    {35, openLastFile},     // End
}};

constexpr std::array<CommandKey, 3> kVideoKeys{{
    {32, togglePlayback},   // Space
    {188, showFrameBefore}, // comma
    {190, showNextFrame},   // period
}};

// Runs the command of the key where the table has one.
bool runKey(ViewerState &viewer, std::span<const CommandKey> table, int code) {
  for (const CommandKey &row : table) {
    if (row.code != code) continue;
    row.command(viewer);
    return true;
  }
  return false;
}

// Whether the key, as it is pressed, is the row's shortcut.
bool isShortcut(const ViewerState &viewer, const MenuRow &row, KeyPress key) {
  if (row.shortcut.code != key.code || key.alt) return false;
  const ShortcutUse use = row.shortcut.use;
  if (key.ctrl) return use == ShortcutUse::kWithCtrl || use == ShortcutUse::kWithCtrlOrAlone;
  return use == ShortcutUse::kKeyAlone || (use == ShortcutUse::kWithCtrlOrAlone && viewer.preferences.Check4 == kTrue);
}

} // namespace

bool pressKey(ViewerState &viewer, KeyPress key) {
  if (runKey(viewer, kPagingKeys, key.code)) return true;
  if (key.code == kEscape && viewer.preferences.Check3 == kTrue) {
    menuExit_Click(viewer);
    return true;
  }
  if (videoOpen(viewer) && !key.ctrl && !key.alt && runKey(viewer, kVideoKeys, key.code)) return true;
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    if (!isShortcut(viewer, kMenuRows[index], key)) continue;
    runMenuRow(viewer, index);
    return true;
  }
  return false;
}
