#include "core/display_settings.h"

#include "core/commands.h"
#include "core/following.h"
#include "state/palette.h"
#include "state/platform_calls.h"

#include <array>

namespace {

// A setting that a menu item switches and shows.
struct Switch {
  const char *name; // of the stored value, "0" or "1"
  bool DisplaySettings::*setting;
  MenuItem WindowModel::*item;
};

constexpr Switch kGrid{"Grid", &DisplaySettings::grid, &WindowModel::menuGrid};
constexpr Switch kFollowChanges{"FollowChanges", &DisplaySettings::followChanges, &WindowModel::menuFollowChanges};
constexpr Switch kSamePalette{"PaletteOfSameName", &DisplaySettings::paletteOfSameName, &WindowModel::menuSamePalette};
constexpr Switch kOrderByNumber{"OrderByNumber", &DisplaySettings::orderByNumber, &WindowModel::menuOrderByNumber};

void turn(ViewerState &viewer, const Switch &which) {
  bool &setting = viewer.display.*which.setting;
  setting = !setting;
  (viewer.window.*which.item).checked = setting;
  writeValue(viewer, which.name, setting ? "1" : "0");
}

} // namespace

void loadDisplaySettings(ViewerState &viewer) {
  for (const Switch &which : {kGrid, kFollowChanges, kSamePalette, kOrderByNumber}) {
    const auto stored = readValue(viewer, which.name);
    bool &setting = viewer.display.*which.setting;
    if (stored == "0" || stored == "1") setting = stored == "1";
    (viewer.window.*which.item).checked = setting;
  }
}

void menuGrid_Click(ViewerState &viewer) { turn(viewer, kGrid); }

// The file may have changed while it was not followed.
void menuFollowChanges_Click(ViewerState &viewer) {
  turn(viewer, kFollowChanges);
  noteFileChange(viewer);
}

void menuOrderByNumber_Click(ViewerState &viewer) { turn(viewer, kOrderByNumber); }

void menuSamePalette_Click(ViewerState &viewer) {
  turn(viewer, kSamePalette);
  const bool isOpen = viewer.pictureShown == kTrue && viewer.picturePath == openedPath(viewer);
  if (isOpen && hasShortPalette(viewer)) menuReload_Click(viewer);
}
