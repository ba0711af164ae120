#include "shell/window_sync.h"

#include "core/scaling.h"
#include "shell/menu_bar.h"
#include "shell/swatches.h"
#include "shell/win32_helpers.h"
#include "shell/window_controls.h"
#include "shell/window_placement.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

// InvalidateRect(nullptr) repaints every window: skip controls that were not created.
void redraw(HWND control) {
  if (control != nullptr) InvalidateRect(control, nullptr, FALSE);
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
  if (readout.text != main.shown.readout.text) {
    setText(main.readout, readout.text);
    redraw(main.readout);
  }
  if (readout.colour != main.shown.readout.colour) redraw(main.readoutSwatch);
  const bool visible = showsColour(readout);
  if (visible != showsColour(main.shown.readout)) setVisible(main.readoutSwatch, visible);
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

void syncPicture(MainWindow &main, const WindowModel &before) {
  const WindowModel &model = main.shown;
  const bool recentred = model.alwaysCentred && (!before.alwaysCentred || model.fittings != before.fittings);
  const bool rescaled = model.scale != before.scale;
  const bool rowsChanged = model.HScroll1.visible != before.HScroll1.visible;
  const bool resized =
      rowsChanged || model.mainViewWidth != before.mainViewWidth || model.mainViewHeight != before.mainViewHeight;
  const bool redrawn = rescaled || model.pictureSerial != before.pictureSerial || model.stretch != before.stretch ||
                       model.menuGrid.checked != before.menuGrid.checked;
  // Under a turning wheel the window keeps its size: growing, it would take the pixel away from the mouse.
  const bool scaledByWheel = main.mainView.wheel.has_value();
  if (redrawn) redrawPicture(main.mainView, model);
  if (model.fullScreen != before.fullScreen) {
    turnFullScreen(main);
  } else if (model.windowFits != before.windowFits) {
    fitWindowToPicture(main);
  } else if (resized || (rescaled && !scaledByWheel)) {
    fitWindow(main);
  } else if (recentred && IsWindowVisible(main.window)) {
    placeWindow(main);
  }
  if (redrawn && IsWindowVisible(main.window)) settleView(main.mainView);
  if (rowsChanged) syncWindow(main); // Fit has other room now
}

} // namespace

void syncWindow(MainWindow &main) {
  if (main.window == nullptr) return;
  const SIZE room = IsWindowVisible(main.window) ? viewRoom(main.mainView) : SIZE{};
  if (!IsIconic(main.window)) applyScale(*main.viewer, room.cx, room.cy);
  const WindowModel &model = main.viewer->window;

  if (model.caption != main.shown.caption) setText(main.window, model.caption);
  syncLabels(main, model);
  syncSwatches(main, model);
  syncVideoControls(main, model);
  syncMenuBar(main.window, main.menuBar, model, main.shown);

  if (model.fullScreen && !main.shown.fullScreen) storeWindow(main);
  const WindowModel before = std::exchange(main.shown, model); // resizing sends messages that read `shown`
  syncPicture(main, before);
}
