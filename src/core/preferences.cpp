#include "core/preferences.h"

#include "base/text.h"
#include "core/display_geometry.h"

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

// The path is not put in quotes: intended.
constexpr const char *kCommandArguments = ".exe %1";
constexpr const char *kIcon = ".exe,0";

constexpr const char *kChecked = "1";
constexpr const char *kUnchecked = "0";

// .DAT, .CMP and .SRC: names that files of many other programs have too.
constexpr std::array<size_t, 3> kLeftToOthers = {1, 2, 22};

std::string setting(const ViewerState &viewer, const std::string &key) {
  return viewer.platform.readSetting(viewer.platform.context, key);
}

void write(const ViewerState &viewer, const std::string &key, const std::string &value) {
  viewer.platform.writeSetting(viewer.platform.context, key, value);
}

// Folder and name of the running program, without ".exe".
std::string programStem(const ViewerState &viewer) {
  constexpr std::string_view kProgramExtension = ".EXE";
  std::string path = viewer.platform.programPath(viewer.platform.context);
  if (upperCased(lastCharacters(path, kProgramExtension.size())) == kProgramExtension) {
    path.resize(path.size() - kProgramExtension.size());
  }
  return path;
}

void writeAssociations(const ViewerState &viewer, const Preferences &form) {
  constexpr size_t kExtensionLetters = 3;
  for (size_t i = 0; i < kAssociationCount; ++i) {
    const std::string key = "." + std::string(lastCharacters(kAssociatedExtensions[i], kExtensionLetters));
    if (form.Check1[i] == kTrue) {
      write(viewer, key, kClass);
    } else {
      viewer.platform.deleteSetting(viewer.platform.context, key);
    }
  }
}

// Without the associations, which are many keys and of no concern to the window.
Preferences storedGeneralPreferences(const ViewerState &viewer) {
  Preferences form;
  for (const GeneralPreference &row : kGeneralPreferences) {
    form.*row.box = toFlag(setting(viewer, kClass + "\\" + row.key) == kChecked);
  }
  return form;
}

// The preferences act at once.
void takeOver(ViewerState &viewer, const Preferences &form) {
  viewer.preferences = form;
  viewer.window.alwaysCentred = form.Check2 == kTrue;
}

} // namespace

constexpr std::array<const char *, kAssociationCount> kAssociatedExtensions{
    ".GE5", ".DAT", ".CMP", ".SC2", ".SR2", ".SC4", ".SR4", ".SC5", ".SR5", ".SC6", ".SR6", ".SC7", ".SR7",
    ".SC8", ".SR8", ".SCA", ".SRA", ".S10", ".SCB", ".SRB", ".S11", ".SCC", ".SRC", ".S12", ".G9B"};

constexpr std::array<GeneralPreference, kGeneralPreferenceCount> kGeneralPreferences{{
    {"&Always center window", "AutoCenter", &Preferences::Check2},
    {"&ESC key exits program", "EscExits", &Preferences::Check3},
    {"Shortcuts &without CTRL", "Shortcuts", &Preferences::Check4},
    {"&Disable auto aspect ratio", "AutoRatio", &Preferences::Check5},
}};

Preferences storedPreferences(const ViewerState &viewer) {
  Preferences form = storedGeneralPreferences(viewer);
  for (size_t i = 0; i < kAssociationCount; ++i) {
    form.Check1[i] = toFlag(setting(viewer, kAssociatedExtensions[i]) == kClass);
  }
  return form;
}

void loadPreferences(ViewerState &viewer) { takeOver(viewer, storedGeneralPreferences(viewer)); }

void checkAllAssociations(Preferences &form) { form.Check1.fill(kTrue); }

void uncheckAllAssociations(Preferences &form) { form.Check1.fill(kFalse); }

void defaultAssociations(Preferences &form) {
  checkAllAssociations(form);
  for (const size_t index : kLeftToOthers) form.Check1[index] = kFalse;
}

void menuSavePreferences_Click(ViewerState &viewer, const Preferences &form) {
  const std::string program = programStem(viewer);
  write(viewer, kClass, kClassText);
  write(viewer, kClass + "\\shell\\open\\command", program + kCommandArguments);
  write(viewer, kClass + "\\DefaultIcon", program + kIcon);
  for (const GeneralPreference &row : kGeneralPreferences) {
    write(viewer, kClass + "\\" + row.key, form.*row.box == kTrue ? kChecked : kUnchecked);
  }
  viewer.platform.notifyAssociations(viewer.platform.context);
  writeAssociations(viewer, form);
  viewer.platform.notifyAssociations(viewer.platform.context);

  takeOver(viewer, form);
  ApplyDisplayGeometry(viewer);
}
