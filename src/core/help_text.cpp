#include "core/help_text.h"

#include "core/file_kinds.h"
#include "core/menus.h"
#include "base/text.h"
#include "core/version.h"

#include <array>

namespace {

struct HelpLine {
  const char *what;
  const char *how;
};

constexpr std::array<HelpLine, 10> kFurtherKeys{{
    {"Page Down", "Next picture of the folder"},
    {"Page Up", "Picture before"},
    {"Home", "First picture of the folder"},
    {"End", "Last picture of the folder"},
    {"Esc", "Exit, where Preferences allow it"},
    {"Space", "Play a video, or stop it"},
    {", and .", "One frame back, one frame on"},
    {"Arrow keys", "Scroll a picture that is larger than the screen"},
    {"F10 or Alt", "Menus"},
    {"Tab", "Next control of the window"},
}};

constexpr std::array<const char *, 8> kTips{
    "Drop a file onto the picture to open it.",
    "Save as Bitmap writes beside the file, under its name and .bmp, at the size of the MSX picture.",
    "Pictures of 512 x 212 dots are shown in their true shape, twice as high; Preferences can turn that off.",
    "Preferences can let the letter keys work without Ctrl.",
    "Point at the picture to see place, color number and color under the mouse.",
    "Load Palette takes .PL4 to .PL7 and .PAL files; Store and Restore Palette carry colors from one picture to "
    "another.",
    "A picture that looks wrong may have been saved without its palette: try Load Palette.",
    "A sprite set (.TGS) needs the .TCS file of the same name beside it.",
};

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
  std::string text =
      heading("Keys") + keyLines() + "\n" + heading("Kinds of file") + kindLines() + "\n" + heading("Tips");
  for (const char *tip : kTips) text += std::string(tip) + "\n";
  return text;
}

void menuHelp_Click(ViewerState &viewer) {
  viewer.platform.showText(viewer.platform.context, "Korilan Help", helpText());
}

void menuAbout_Click(ViewerState &viewer) {
  viewer.platform.showMessage(viewer.platform.context, "About Korilan",
                              "Korilan " KORILAN_VERSION "\n\nShows pictures and videos of MSX home computers.",
                              MessageIcon::kInformation);
}
