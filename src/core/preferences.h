// Preferences and file associations, kept in the store of file classes.
#pragma once

#include "state/viewer_state.h"

#include <array>
#include <string>

// In the order of the check boxes, each with its dot.
extern const std::array<const char *, kAssociationCount> kAssociatedExtensions;

struct GeneralPreference {
  const char *caption; // of the check box; "&" stands before the access key
  const char *key;     // of the setting
  Flag16 Preferences::*box;
};

inline constexpr size_t kGeneralPreferenceCount = 4;

// In the order of the dialog.
extern const std::array<GeneralPreference, kGeneralPreferenceCount> kGeneralPreferences;

// What the dialog starts from: each box as the settings have it.
Preferences storedPreferences(const ViewerState &viewer);

// Takes over the four general preferences as the settings have them.
void loadPreferences(ViewerState &viewer);

// "Check All", "UnCheck All" and "Default" of the associations; by default the extensions that other programs use too
// are left alone.
void checkAllAssociations(Preferences &form);
void uncheckAllAssociations(Preferences &form);
void defaultAssociations(Preferences &form);

// Writes the form to the settings and makes it the viewer's preferences at once. The key of each extension that is not
// checked is deleted, whatever program it belonged to: intended.
void menuSavePreferences_Click(ViewerState &viewer, const Preferences &form);
