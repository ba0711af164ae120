#include "state/window_model.h"

bool showsColour(const ColourReadout &readout) { return !readout.text.empty() && !readout.ofCommand; }

void hideSwatches(WindowModel &window) {
  window.menuViewPal.checked = false;
  for (Swatch &swatch : window.Label5) swatch.visible = false;
}

void enablePictureCommands(WindowModel &window) {
  for (MenuItem *item :
       {&window.menuView, &window.menuClose, &window.menuSaveBMP, &window.menuSavePNG, &window.menuCopyClipboard}) {
    item->enabled = true;
  }
}
