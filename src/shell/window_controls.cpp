#include "shell/window_controls.h"

#include "shell/control_ids.h"
#include "shell/swatch_tips.h"
#include "shell/themed_controls.h"
#include "shell/win32_helpers.h"
#include "shell/window_placement.h"

namespace {

HINSTANCE programInstance() { return GetModuleHandleW(nullptr); }

HWND createStatic(const MainWindow &main, size_t id, DWORD style) {
  return CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, main.window,
                         reinterpret_cast<HMENU>(id), programInstance(), nullptr);
}

} // namespace

void makeLabels(MainWindow &main) {
  constexpr DWORD kLabel = WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS;
  for (size_t i = 0; i < main.labels.size(); ++i) {
    main.labels[i] = createStatic(main, kLabel1Id + i, kLabel);
    SendMessageW(main.labels[i], WM_SETFONT, reinterpret_cast<WPARAM>(main.font), FALSE);
    setText(main.labels[i], main.shown.*kLabelTexts[i]);
  }
  main.readout = createStatic(main, kReadoutId, WS_VISIBLE | SS_OWNERDRAW);
  setText(main.readout, main.shown.readout.text);
  main.readoutSwatch = createStatic(main, kReadoutSwatchId, SS_OWNERDRAW);
  placeControls(main);
  setVisible(main.readoutSwatch, showsColour(main.shown.readout));
}

void provideSwatches(MainWindow &main) {
  if (main.swatches.front() != nullptr) return;
  for (size_t i = 0; i < main.swatches.size(); ++i) {
    main.swatches[i] = createStatic(main, kLabel5Id + i, SS_OWNERDRAW | SS_NOTIFY);
  }
  makeSwatchTips(main);
  placeControls(main);
}

bool provideVideoControls(MainWindow &main) {
  if (main.videoControlsMade) return false;
  main.videoControlsMade = true;
  const ThemedControls themed;
  createVideoButtons(main.videoButtons, main.window, programInstance());
  main.frameBar =
      CreateWindowExW(0, L"SCROLLBAR", L"Frame", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | SBS_HORZ, 0, 0, 0, 0,
                      main.window, reinterpret_cast<HMENU>(INT_PTR{kHScroll1Id}), programInstance(), nullptr);
  return true;
}
