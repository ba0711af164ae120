#include "shell/window_sync.h"

#include "core/menus.h"
#include "shell/control_ids.h"
#include "shell/swatches.h"
#include "shell/win32_helpers.h"
#include "shell/window_controls.h"
#include "shell/window_placement.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

// InvalidateRect(nullptr) repaints every window: skip controls that were not created.
void redraw(HWND control) {
  if (control != nullptr) InvalidateRect(control, nullptr, FALSE);
}

constexpr UINT greyed(bool enabled) { return static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED); }

void syncMenuItems(const MainWindow &main, const WindowModel &model) {
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    const MenuRow &row = kMenuRows[index];
    if (row.item == nullptr) continue;
    const UINT command = kFirstMenuCommand + static_cast<UINT>(index);
    const bool enabled = menuRowEnabled(model, row);
    if (enabled != menuRowEnabled(main.shown, row)) {
      EnableMenuItem(main.menuBar, command, MF_BYCOMMAND | greyed(enabled));
    }
    const bool checked = (model.*row.item).checked;
    if (checked != (main.shown.*row.item).checked) {
      CheckMenuItem(main.menuBar, command, static_cast<UINT>(MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED)));
    }
  }
}

void syncSwatches(MainWindow &main, const WindowModel &model) {
  if (std::any_of(model.Label5.begin(), model.Label5.end(), [](const Swatch &swatch) { return swatch.visible; })) {
    provideSwatches(main);
  }
  for (size_t i = 0; i < main.swatches.size(); ++i) {
    const Swatch &swatch = model.Label5[i];
    const Swatch &shown = main.shown.Label5[i];
    const bool recoloured = swatch.background != shown.background || swatch.text != shown.text;
    if (swatch.visible && (recoloured || !shown.visible)) {
      setText(main.swatches[i], swatchName(i, swatch.background));
      redraw(main.swatches[i]);
    }
    if (swatch.visible != shown.visible) setVisible(main.swatches[i], swatch.visible);
  }
}

// Calls for labels that were not created have no effect.
void syncLabels(const MainWindow &main, const WindowModel &model) {
  for (size_t label = 0; label < kLabelTexts.size(); ++label) {
    const std::string &text = model.*kLabelTexts[label];
    if (text != main.shown.*kLabelTexts[label]) setText(main.labels[label], text);
  }
  const ColourReadout &readout = model.readout;
  const bool visible = !readout.text.empty();
  if (readout.text != main.shown.readout.text) {
    setText(main.readout, readout.text);
    redraw(main.readout);
  }
  if (readout.colour != main.shown.readout.colour) redraw(main.readoutSwatch);
  if (visible != !main.shown.readout.text.empty()) setVisible(main.readoutSwatch, visible);
}

void syncVideoControls(MainWindow &main, const WindowModel &model) {
  const ScrollBar &bar = model.HScroll1;
  const ScrollBar &shown = main.shown.HScroll1;
  const bool fresh = bar.visible && provideVideoControls(main);
  const bool newRange = fresh || bar.maximum != shown.maximum;
  if (main.frameBar != nullptr && (newRange || bar.value != shown.value)) {
    SCROLLINFO state{};
    state.cbSize = sizeof state;
    // A range also enables the control.
    state.fMask = static_cast<UINT>(newRange ? SIF_RANGE | SIF_POS | SIF_DISABLENOSCROLL : SIF_POS);
    state.nMax = std::max(0, bar.maximum);
    state.nPos = bar.value;
    SetScrollInfo(main.frameBar, SB_CTL, &state, TRUE);
  }
  if (bar.enabled != shown.enabled) {
    if (GetFocus() == main.frameBar) SetFocus(main.mainView.window); // a disabled control takes the keys of all
    EnableWindow(main.frameBar, bar.enabled && bar.maximum > 0);
  }
  if (bar.visible == shown.visible) return;
  if (!bar.visible) SetFocus(main.mainView.window); // the controls to be hidden may have the focus
  showVideoButtons(main.videoButtons, model.Image1.visible);
  setVisible(main.frameBar, bar.visible);
}

void syncViewMenu(const MainWindow &main, const WindowModel &model) {
  if (model.menuView.enabled == main.shown.menuView.enabled) return;
  UINT position = 0;
  for (size_t index = 0; index < kMenuRows.size(); ++index) {
    const std::string_view menu = kMenuRows[index].menu;
    if (index > 0 && menu != kMenuRows[index - 1].menu) ++position;
    if (menu == kViewMenu) break;
  }
  EnableMenuItem(main.menuBar, position, MF_BYPOSITION | greyed(model.menuView.enabled));
  DrawMenuBar(main.window);
}

} // namespace

void syncWindow(MainWindow &main) {
  if (main.window == nullptr) return;
  const WindowModel &model = main.viewer->window;

  if (model.caption != main.shown.caption) setText(main.window, model.caption);
  syncLabels(main, model);
  syncSwatches(main, model);
  syncVideoControls(main, model);
  syncMenuItems(main, model);
  syncViewMenu(main, model);

  const bool recentred = model.alwaysCentred && (!main.shown.alwaysCentred || model.fittings != main.shown.fittings);
  const bool resized = model.mainViewWidth != main.shown.mainViewWidth ||
                       model.mainViewHeight != main.shown.mainViewHeight ||
                       model.HScroll1.visible != main.shown.HScroll1.visible;
  const bool redrawn = model.pictureSerial != main.shown.pictureSerial || model.stretch != main.shown.stretch;
  // Assigned before resizing, which sends messages that read `shown`.
  main.shown = model;
  if (redrawn) redrawPicture(main.mainView, model.stretch, pictureAreaOf(model));
  if (resized) {
    fitWindow(main);
  } else if (recentred && IsWindowVisible(main.window)) {
    placeWindow(main);
  }
  if (redrawn && IsWindowVisible(main.window)) updateScrollBars(main.mainView);
}
