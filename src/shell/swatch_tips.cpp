#include "shell/swatch_tips.h"

#include "shell/themed_controls.h"

#include <commctrl.h>

#include <iterator>

void makeSwatchTips(const MainWindow &main) {
  const ThemedControls themed; // loads the library of the tooltips
  const HWND tips = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0, main.window,
                                    nullptr, GetModuleHandleW(nullptr), nullptr);
  for (const HWND swatch : main.swatches) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = main.window;
    tool.uId = reinterpret_cast<UINT_PTR>(swatch);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void provideTipText(NMHDR &notification) {
  if (notification.code != TTN_GETDISPINFOW) return;
  auto &wanted = reinterpret_cast<NMTTDISPINFOW &>(notification);
  GetWindowTextW(reinterpret_cast<HWND>(notification.idFrom), wanted.szText,
                 static_cast<int>(std::size(wanted.szText)));
  wanted.lpszText = wanted.szText;
}
