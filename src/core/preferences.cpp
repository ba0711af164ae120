#include "core/preferences.h"

#include "base/text.h"
#include "core/display_geometry.h"
#include "state/platform_calls.h"

#include <string_view>

//  key                         text
//  Korilan                     "MSX Graphics File"
//  Korilan\shell\open\command  program and " %1"
//  Korilan\DefaultIcon         program and ",0"
//  Korilan\AutoCenter ...      "1" or "0", the general preferences
//  .EXT                        "Korilan", one key for each associated extension

namespace {

const std::string kClass = "Korilan";
constexpr const char *kClassText = "MSX Graphics File";

// The path is not quoted: intended, other programs read the key in this form.
constexpr const char *kCommandArguments = ".exe %1";
constexpr const char *kIcon = ".exe,0";

constexpr const char *kChecked = "1";
constexpr const char *kUnchecked = "0";

// Folder and name of the running program, without ".exe".
std::string programStem(const ViewerState &viewer) {
  constexpr std::string_view kProgramExtension = ".EXE";
  std::string path = programPath(viewer);
  if (upperCased(lastCharacters(path, kProgramExtension.size())) == kProgramExtension) {
    path.resize(path.size() - kProgramExtension.size());
  }
  return path;
}

void writeAssociations(const ViewerState &viewer, const Preferences &form) {
  for (size_t i = 0; i < kAssociationCount; ++i) {
    if (form.Check1[i] == kTrue) {
      writeSetting(viewer, kAssociations[i].extension, kClass);
    } else {
      deleteSetting(viewer, kAssociations[i].extension);
    }
  }
}

// Without the associations, which take many reads and do not affect the window.
Preferences storedGeneralPreferences(const ViewerState &viewer) {
  Preferences form;
  for (const GeneralPreference &row : kGeneralPreferences) {
    form.*row.box = toFlag(readSetting(viewer, kClass + "\\" + row.key) == kChecked);
  }
  return form;
}

// Applies the preferences at once.
void apply(ViewerState &viewer, const Preferences &form) {
  viewer.preferences = form;
  viewer.window.alwaysCentred = form.Check2 == kTrue;
}

} // namespace

// clang-format off
constexpr std::array<Association, kAssociationCount> kAssociations{{
    {".GE5"}, {".DAT", true}, {".CMP", true}, {".SC2"}, {".SR2"}, {".SC4"}, {".SR4"}, {".SC5"}, {".SR5"},
    {".SC6"}, {".SR6"}, {".SC7"}, {".SR7"}, {".SC8"}, {".SR8"}, {".SCA"}, {".SRA"}, {".S10"},
    {".SCB"}, {".SRB"}, {".S11"}, {".SCC"}, {".SRC", true}, {".S12"}, {".G9B"},
}};
// clang-format on

constexpr std::array<GeneralPreference, kGeneralPreferenceCount> kGeneralPreferences{{
    {"&Always center window", "AutoCenter", &Preferences::Check2},
    {"&ESC key exits program", "EscExits", &Preferences::Check3},
    {"Shortcuts &without CTRL", "Shortcuts", &Preferences::Check4},
    {"&Disable auto aspect ratio", "AutoRatio", &Preferences::Check5},
}};

Preferences storedPreferences(const ViewerState &viewer) {
  Preferences form = storedGeneralPreferences(viewer);
  for (size_t i = 0; i < kAssociationCount; ++i) {
    form.Check1[i] = toFlag(readSetting(viewer, kAssociations[i].extension) == kClass);
  }
  return form;
}

void loadPreferences(ViewerState &viewer) { apply(viewer, storedGeneralPreferences(viewer)); }

void checkAllAssociations(Preferences &form) { form.Check1.fill(kTrue); }

void uncheckAllAssociations(Preferences &form) { form.Check1.fill(kFalse); }

void defaultAssociations(Preferences &form) {
  for (size_t i = 0; i < kAssociationCount; ++i) form.Check1[i] = toFlag(!kAssociations[i].usedByOthers);
}

void menuSavePreferences_Click(ViewerState &viewer, const Preferences &form) {
  const std::string program = programStem(viewer);
  writeSetting(viewer, kClass, kClassText);
  writeSetting(viewer, kClass + "\\shell\\open\\command", program + kCommandArguments);
  writeSetting(viewer, kClass + "\\DefaultIcon", program + kIcon);
  for (const GeneralPreference &row : kGeneralPreferences) {
    writeSetting(viewer, kClass + "\\" + row.key, form.*row.box == kTrue ? kChecked : kUnchecked);
  }
  notifyAssociations(viewer);
  writeAssociations(viewer, form);
  notifyAssociations(viewer);

  apply(viewer, form);
  ApplyDisplayGeometry(viewer);
}
