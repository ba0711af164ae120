#include "core/keys.h"

#include "base/key_codes.h"
#include "core/commands.h"
#include "core/folder_navigation.h"
#include "core/menus.h"
#include "core/video_commands.h"

#include <array>
#include <span>

namespace {

struct CommandKey {
  int code;
  MenuCommand command;
};

constexpr std::array<CommandKey, 4> kPagingKeys{{
    {key_code::kPageUp, openPreviousFile},
    {key_code::kPageDown, openNextFile},
    {key_code::kHome, openFirstFile},
    {key_code::kEnd, openLastFile},
}};

constexpr std::array<CommandKey, 2> kDiskKeys{{
    // with Ctrl
    {key_code::kPageUp, openPreviousDisk},
    {key_code::kPageDown, openNextDisk},
}};

constexpr std::array<CommandKey, 3> kVideoKeys{{
    {key_code::kSpace, togglePlayback},
    {key_code::kComma, showFrameBefore},
    {key_code::kPeriod, showNextFrame},
}};

// F11 or Alt+Enter.
bool isFullScreenKey(KeyPress key) {
  if (key.ctrl || key.shift) return false;
  return key.alt ? key.code == key_code::kReturn : key.code == key_code::kF11;
}

// Leaves full screen first, then the program if the preferences allow it. Returns false if there is nothing to leave.
bool pressEscape(ViewerState &viewer) {
  if (viewer.window.fullScreen) {
    menuFullScreen_Click(viewer);
  } else if (viewer.preferences.Check3 == kTrue) {
    menuExit_Click(viewer);
  } else {
    return false;
  }
  return true;
}

// Runs the key's command. Returns false if the table has none.
bool runKey(ViewerState &viewer, std::span<const CommandKey> table, int code) {
  for (const CommandKey &row : table) {
    if (row.code != code) continue;
    row.command(viewer);
    return true;
  }
  return false;
}

// The keys of the number pad mean those of the main block. Plus may need Shift.
KeyPress onMainBlock(KeyPress key) {
  switch (key.code) {
  case key_code::kNumpadPlus: key.code = key_code::kPlus; break;
  case key_code::kNumpadMinus: key.code = key_code::kMinus; break;
  case key_code::kNumpad0: key.code = key_code::kDigit0; break;
  case key_code::kPlus: key.shift = false; break;
  default: break;
  }
  return key;
}

// Whether the key press is the row's shortcut.
bool isShortcut(const ViewerState &viewer, const MenuRow &row, KeyPress key) {
  const ShortcutUse use = row.shortcut.use;
  if (row.shortcut.code != key.code || key.alt) return false;
  if (key.shift) return key.ctrl && use == ShortcutUse::kWithCtrlAndShift;
  if (key.ctrl) return use == ShortcutUse::kWithCtrl || use == ShortcutUse::kWithCtrlOrAlone;
  return use == ShortcutUse::kKeyAlone || (use == ShortcutUse::kWithCtrlOrAlone && viewer.preferences.Check4 == kTrue);
}

} // namespace

// Paging keys first, then Esc and the keys of full screen, then the keys of an open video, then the shortcuts of the
// menus.
bool pressKey(ViewerState &viewer, KeyPress key) {
  const bool alone = !key.ctrl && !key.alt && !key.shift;
  if (alone && runKey(viewer, kPagingKeys, key.code)) return true;
  if (key.ctrl && !key.alt && !key.shift && runKey(viewer, kDiskKeys, key.code)) return true;
  if (alone && key.code == key_code::kEscape && pressEscape(viewer)) return true;
  if (isFullScreenKey(key)) {                        // also during a load
    if (!key.repeated) menuFullScreen_Click(viewer); // a key held down acts once
    return true;
  }
  if (viewer.player != nullptr && key.code == key_code::kSpace && key.repeated) return true;
  if (viewer.player != nullptr && alone && runKey(viewer, kVideoKeys, key.code)) return true;
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    if (!isShortcut(viewer, kMenuRows[index], onMainBlock(key))) continue;
    runMenuRow(viewer, index);
    return true;
  }
  return false;
}
