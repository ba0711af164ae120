#include "core/menus.h"

#include "core/bitmap_export.h"
#include "core/commands.h"
#include "formats/colour_count.h"

#include <string_view>

// clang-format off
constexpr std::array<MenuRow, kMenuRowCount> kMenuRows{{
    {"File",    "Open",              &WindowModel::menuOpen,          nullptr},
    {"File",    "Close",             &WindowModel::menuClose,         menuClose_Click},
    {"File",    nullptr,             nullptr,                         nullptr},
    {"File",    "Save as Bitmap",    &WindowModel::menuSaveBMP,       menuSaveBMP_Click},
    {"File",    "Copy to Clipboard", &WindowModel::menuCopyClipboard, menuCopyClipboard_Click},
    {"File",    nullptr,             nullptr,                         nullptr},
    {"File",    "Preferences",       &WindowModel::menuPreferences,   nullptr},
    {"File",    nullptr,             nullptr,                         nullptr},
    {"File",    "Exit",              &WindowModel::menuExit,          menuExit_Click},
    {kViewMenu, "Zoom",              &WindowModel::menuZoom,          nullptr},
    {kViewMenu, "1:2 Aspect  Ratio", &WindowModel::menuDoubleHeight,  nullptr}, // two blanks, intended
    {kViewMenu, "Image Info",        &WindowModel::menuImageInfo,     nullptr},
    {kViewMenu, "Count Colors",      &WindowModel::menuCountColors,   menuCountColors_Click},
    {"Palette", "View Palette",      &WindowModel::menuViewPal,       nullptr},
    {"Palette", nullptr,             nullptr,                         nullptr},
    {"Palette", "Load Palette",      &WindowModel::menuLoadPal,       nullptr},
    {"Palette", "Store Palette",     &WindowModel::menuSavePal,       nullptr},
    {"Palette", "Restore Palette",   &WindowModel::menuRestPal,       nullptr},
    {"Help",    "Help",              &WindowModel::menuHelp,          nullptr},
    {"Help",    "About",             &WindowModel::menuAbout,         nullptr},
}};
// clang-format on

bool menuRowEnabled(const WindowModel &window, const MenuRow &row) {
  if (row.command == nullptr || !(window.*row.item).enabled) return false;
  return std::string_view(row.menu) != kViewMenu || window.menuView.enabled;
}

void runMenuRow(ViewerState &viewer, size_t index) {
  if (index >= kMenuRows.size() || !menuRowEnabled(viewer.window, kMenuRows[index])) return;
  kMenuRows[index].command(viewer);
}
