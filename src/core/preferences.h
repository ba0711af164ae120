// Preferences and file associations, kept in the store of file classes.
#pragma once

#include "state/viewer_state.h"

#include <array>

struct Association {
  const char *extension;     // with its dot
  bool usedByOthers = false; // other programs use the extension too
};

// In the order of the check boxes.
extern const std::array<Association, kAssociationCount> kAssociations;

struct GeneralPreference {
  const char *caption; // of the check box; "&" precedes the access key
  const char *key;     // of the setting
  Flag16 Preferences::*box;
};

inline constexpr size_t kGeneralPreferenceCount = 4;

// In the order of the dialog.
extern const std::array<GeneralPreference, kGeneralPreferenceCount> kGeneralPreferences;

// The stored state of each check box of the dialog.
Preferences storedPreferences(const ViewerState &viewer);

// Applies the four stored general preferences.
void loadPreferences(ViewerState &viewer);

// "Check All", "UnCheck All" and "Default" of the associations; Default leaves out extensions that other programs use.
void checkAllAssociations(Preferences &form);
void uncheckAllAssociations(Preferences &form);
void defaultAssociations(Preferences &form);

// Writes the form to the settings and applies it. Deletes the key of each unchecked extension, even another program's:
// intended, "unchecked" means "opened by no program".
void menuSavePreferences_Click(ViewerState &viewer, const Preferences &form);
