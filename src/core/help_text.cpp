#include "core/help_text.h"

#include "core/file_kinds.h"
#include "core/menus.h"
#include "core/version.h"
#include "state/platform_calls.h"

#include <array>

namespace {

struct HelpLine {
  const char *what;
  const char *how;
};

constexpr auto kFurtherKeys = std::to_array<HelpLine>({
    {"Page Down", "Next picture of the folder"},
    {"Page Up", "Previous picture of the folder"},
    {"Home", "First picture of the folder"},
    {"End", "Last picture of the folder"},
    {"Ctrl+Page Down", "Next disk image of the folder"},
    {"Ctrl+Page Up", "Previous disk image of the folder"},
    {"Esc", "Leave full screen; then Exit, if Preferences allow it"},
    {"Alt+Enter", "Full screen; so does a double click on the picture"},
    {"Space", "Play or stop a video"},
    {", and .", "Previous frame, next frame"},
    {"Arrow keys", "Scroll a picture larger than the window"},
    {"Ctrl+wheel", "Larger or smaller, at the mouse"},
    {"F10 or Alt", "Menus"},
    {"Tab", "Next control of the window"},
});

constexpr auto kTips = std::to_array<const char *>({
    "Drop a file onto the window to open it, a palette file to load its colors.",
    "A disk image (.DSK, .DI1, .DI2, .720, .360) opens like a folder: Page Down shows the pictures of the whole disk.",
    "Save as Bitmap writes a .bmp file of the same name beside the file, at the size of the MSX picture.",
    "Save as PNG keeps the color numbers and the whole palette of the picture.",
    "A picture that another program saves is shown anew at once; Follow Changes turns that off.",
    "Pictures of 512 x 212 pixels are shown at twice their height, their true shape; Preferences can turn that off.",
    "Preferences can enable letter keys without Ctrl.",
    "Point at the picture to see position, color number, color and MSX levels under the mouse.",
    "Load Palette reads .PL4 to .PL7 and .PAL files; Store and Restore Palette copy colors from one picture to "
    "another.",
    "If a picture has wrong colors, it may have been saved without its palette: try Load Palette.",
    "Palette of the Same Name takes the colors from a palette file beside the picture: COAST.PL5 for COAST.SC5.",
    "Order by Number has Page Down show PIC2 before PIC10.",
    "A sprite set (.TGS) needs the .TCS file of the same name beside it.",
});

std::string heading(const char *text) { return std::string(text) + "\n\n"; }

std::string keyLines() {
  std::string text;
  for (const MenuRow &row : kMenuRows) {
    if (row.shortcut.use == ShortcutUse::kNone) continue;
    text += shortcutText(row) + "\t" + plainCaption(row.caption) + "\n";
  }
  for (const HelpLine &line : kFurtherKeys) text += std::string(line.what) + "\t" + line.how + "\n";
  return text;
}

std::string kindLines() {
  std::string text;
  for (const FileKind &kind : kFileKinds) text += std::string(kind.extension) + "\t" + kind.typeDescription + "\n";
  return text;
}

} // namespace

std::string helpText() {
  std::string text = heading("Keys") + keyLines() + "\n" + heading("Tips");
  for (const char *tip : kTips) text += std::string(tip) + "\n";
  return text + "\n" + heading("Kinds of file") + kindLines();
}

void menuHelp_Click(ViewerState &viewer) { showText(viewer, "Korilan Help", helpText()); }

void menuAbout_Click(ViewerState &viewer) {
  showMessage(viewer, "About Korilan",
              "Korilan " KORILAN_VERSION "\n\nShows pictures and videos of MSX home computers.",
              MessageIcon::kInformation);
}
