#include "core/menus.h"

#include "base/key_codes.h"
#include "core/bitmap_export.h"
#include "core/colour_count.h"
#include "core/commands.h"
#include "core/display_settings.h"
#include "core/help_text.h"
#include "core/image_info.h"
#include "core/open_dialog.h"
#include "core/palette_commands.h"
#include "core/png_export.h"
#include "core/recent.h"
#include "core/scaling.h"

#include <string_view>

namespace {

constexpr Shortcut key(int code) { return {ShortcutUse::kKeyAlone, code}; }
constexpr Shortcut ctrl(int code) { return {ShortcutUse::kWithCtrl, code}; }
constexpr Shortcut ctrlShift(char letter) { return {ShortcutUse::kWithCtrlAndShift, letter}; }
constexpr Shortcut letter(char letter) { return {ShortcutUse::kWithCtrlOrAlone, letter}; }

void menuPreferences_Click(ViewerState &viewer) { viewer.platform.showPreferences(viewer.platform.context); }

} // namespace

// clang-format off
constexpr std::array<MenuRow, kMenuRowCount> kMenuRows{{
    {"&File",    "&Open",              &WindowModel::menuOpen,          menuOpen_Click,          letter('O')},
    {"&File",    "&Reload",            &WindowModel::menuReload,        menuReload_Click,        key(key_code::kF5)},
    {"&File",    "&Close",             &WindowModel::menuClose,         menuClose_Click,         ctrl('W')},
    {"&File",    "Recen&t",            &WindowModel::menuRecent,        nullptr,                 {},
     &WindowModel::recentFiles, chooseRecentFile},
    {"&File",    "Show in &Folder",    &WindowModel::menuShowInFolder,  menuShowInFolder_Click,  {}},
    {"&File",    nullptr,              nullptr,                         nullptr,                 {}},
    {"&File",    "&Save as Bitmap",    &WindowModel::menuSaveBMP,       menuSaveBMP_Click,       letter('S')},
    {"&File",    "Save as P&NG",       &WindowModel::menuSavePNG,       menuSavePNG_Click,       ctrlShift('S')},
    {"&File",    "Cop&y to Clipboard", &WindowModel::menuCopyClipboard, menuCopyClipboard_Click, letter('C')},
    {"&File",    nullptr,              nullptr,                         nullptr,                 {}},
    {"&File",    "&Preferences",       &WindowModel::menuPreferences,   menuPreferences_Click,   ctrl('E')},
    {"&File",    nullptr,              nullptr,                         nullptr,                 {}},
    {"&File",    "E&xit",              &WindowModel::menuExit,          menuExit_Click,          ctrl('Q')},
    {kViewMenu,  "&Zoom",              &WindowModel::menuZoom,          menuZoom_Click,          letter('Z')},
    // two spaces: intended, scripts find the item by its text
    {kViewMenu,  "1:2 &Aspect  Ratio", &WindowModel::menuDoubleHeight,  menuDoubleHeight_Click,  letter('A')},
    {kViewMenu,  "&Image Info",        &WindowModel::menuImageInfo,     menuImageInfo_Click,     letter('I')},
    {kViewMenu,  "&Count Colors",      &WindowModel::menuCountColors,   menuCountColors_Click,   ctrl('N')},
    {"&Palette", "&View Palette",      &WindowModel::menuViewPal,       menuViewPal_Click,       letter('P')},
    {"&Palette", nullptr,              nullptr,                         nullptr,                 {}},
    {"&Palette", "&Load Palette",      &WindowModel::menuLoadPal,       menuLoadPal_Click,       ctrl('L')},
    {"&Palette", "&Store Palette",     &WindowModel::menuSavePal,       menuSavePal_Click,       letter('T')},
    {"&Palette", "&Restore Palette",   &WindowModel::menuRestPal,       menuRestPal_Click,       letter('R')},
    {"&Display", "&Scale",             &WindowModel::menuScale,         nullptr,                 {},
                                       &WindowModel::scaleChoices,      chooseScale},
    {"&Display", "&Larger",            &WindowModel::menuLarger,        menuLarger_Click,        ctrl(key_code::kPlus)},
    {"&Display", "S&maller",           &WindowModel::menuSmaller,       menuSmaller_Click,       ctrl(key_code::kMinus)},
    {"&Display", "&Normal Scale",      &WindowModel::menuNormalScale,   menuNormalScale_Click,   ctrl(key_code::kDigit0)},
    {"&Display", "&Grid",              &WindowModel::menuGrid,          menuGrid_Click,          {}},
    {"&Display", nullptr,              nullptr,                         nullptr,                 {}},
    {"&Display", "&Full Screen",       &WindowModel::menuFullScreen,    menuFullScreen_Click,    key(key_code::kF11)},
    {"&Display", "Fit &Window to Picture", &WindowModel::menuFitWindow, menuFitWindow_Click,     {}},
    {"&Display", nullptr,              nullptr,                         nullptr,                 {}},
    {"&Display", "Follow &Changes",    &WindowModel::menuFollowChanges, menuFollowChanges_Click, {}},
    {"&Display", "&Palette of the Same Name", &WindowModel::menuSamePalette, menuSamePalette_Click, {}},
    {"&Display", "&Order by Number",   &WindowModel::menuOrderByNumber, menuOrderByNumber_Click, {}},
    {"&Help",    "&Help",              &WindowModel::menuHelp,          menuHelp_Click,          key(key_code::kF1)},
    {"&Help",    "&About",             &WindowModel::menuAbout,         menuAbout_Click,         {}},
}};
// clang-format on

std::string shortcutText(const MenuRow &row) {
  const auto [use, code] = row.shortcut;
  if (use == ShortcutUse::kNone) return "";
  if (use == ShortcutUse::kKeyAlone) return "F" + std::to_string(code - key_code::kF1 + 1);
  const int sign = code == key_code::kPlus ? '+' : code == key_code::kMinus ? '-' : code;
  return std::string(use == ShortcutUse::kWithCtrlAndShift ? "Ctrl+Shift+" : "Ctrl+") + static_cast<char>(sign);
}

std::string plainCaption(const char *caption) {
  std::string plain = caption;
  std::erase(plain, '&');
  return plain;
}

bool menuRowEnabled(const WindowModel &window, const MenuRow &row) {
  if (row.item == nullptr || !(window.*row.item).enabled) return false;
  return std::string_view(row.menu) != kViewMenu || window.menuView.enabled;
}

void runMenuRow(ViewerState &viewer, size_t index) {
  if (index >= kMenuRows.size() || !menuRowEnabled(viewer.window, kMenuRows[index])) return;
  const MenuCommand command = kMenuRows[index].command;
  if (command == nullptr) return;
  if (viewer.activity == Activity::kLoading && command != menuExit_Click) return;
  command(viewer);
}

void runMenuChoice(ViewerState &viewer, size_t index, size_t choice) {
  if (index >= kMenuRows.size() || kMenuRows[index].choices == nullptr) return;
  const MenuRow &row = kMenuRows[index];
  if (!menuRowEnabled(viewer.window, row) || viewer.activity == Activity::kLoading) return;
  if (choice < (viewer.window.*row.choices).captions.size()) row.choose(viewer, choice);
}
