#include "shell/preferences_dialog.h"

#include "core/preferences.h"
#include "shell/control_ids.h"
#include "shell/themed_controls.h"
#include "shell/win32_helpers.h"

namespace {

void putCheck(HWND dialog, int id, Flag16 checked) {
  CheckDlgButton(dialog, id, static_cast<UINT>(checked == kTrue ? BST_CHECKED : BST_UNCHECKED));
}

Flag16 takeCheck(HWND dialog, int id) { return toFlag(IsDlgButtonChecked(dialog, id) == BST_CHECKED); }

void putForm(HWND dialog, const Preferences &form) {
  int id = kGeneralPreferenceId;
  for (const GeneralPreference &row : kGeneralPreferences) putCheck(dialog, id++, form.*row.box);
  id = kAssociationId;
  for (const Flag16 checked : form.Check1) putCheck(dialog, id++, checked);
}

Preferences takeForm(HWND dialog) {
  Preferences form;
  int id = kGeneralPreferenceId;
  for (const GeneralPreference &row : kGeneralPreferences) form.*row.box = takeCheck(dialog, id++);
  id = kAssociationId;
  for (Flag16 &checked : form.Check1) checked = takeCheck(dialog, id++);
  return form;
}

void startDialog(HWND dialog, const ViewerState &viewer) {
  int id = kGeneralPreferenceId;
  for (const GeneralPreference &row : kGeneralPreferences) setText(GetDlgItem(dialog, id++), row.caption);
  id = kAssociationId;
  for (const Association &row : kAssociations) setText(GetDlgItem(dialog, id++), row.extension);
  putForm(dialog, storedPreferences(viewer));
}

void changeAssociations(HWND dialog, void (*change)(Preferences &form)) {
  Preferences form = takeForm(dialog);
  change(form);
  putForm(dialog, form);
}

void runCommand(HWND dialog, ViewerState &viewer, int command) {
  switch (command) {
  case kCheckAllId: changeAssociations(dialog, checkAllAssociations); break;
  case kUncheckAllId: changeAssociations(dialog, uncheckAllAssociations); break;
  case kDefaultId: changeAssociations(dialog, defaultAssociations); break;
  case kSavePreferencesId: menuSavePreferences_Click(viewer, takeForm(dialog)); break;
  case IDOK:
    menuSavePreferences_Click(viewer, takeForm(dialog));
    EndDialog(dialog, 0);
    break;
  case kClosePreferencesId:
  case IDCANCEL: EndDialog(dialog, 0); break;
  default: break;
  }
}

INT_PTR CALLBACK preferencesProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_INITDIALOG:
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    startDialog(dialog, *reinterpret_cast<const ViewerState *>(lParam));
    return TRUE;
  case WM_COMMAND:
    runCommand(dialog, *reinterpret_cast<ViewerState *>(GetWindowLongPtrW(dialog, DWLP_USER)), LOWORD(wParam));
    return TRUE;
  default: return FALSE;
  }
}

} // namespace

void showPreferencesDialog(HWND owner, ViewerState &viewer) {
  const ThemedControls themed;
  DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kPreferencesDialog), owner, preferencesProcedure,
                  reinterpret_cast<LPARAM>(&viewer));
}
