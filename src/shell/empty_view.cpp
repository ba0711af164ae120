#include "shell/empty_view.h"

#include "base/windows_text.h"
#include "core/opening.h"

void drawEmptyText(const MainView &view, HDC screen, const RECT &area) {
  const std::wstring text = toUtf16(kEmptyText);
  const bool onBlack = view.viewer->window.fullScreen;
  const int before = SaveDC(screen);
  SelectObject(screen, reinterpret_cast<HGDIOBJ>(SendMessageW(GetParent(view.window), WM_GETFONT, 0, 0)));
  SetBkMode(screen, TRANSPARENT);
  SetTextColor(screen, onBlack ? RGB(255, 255, 255) : GetSysColor(COLOR_BTNTEXT));
  RECT place = area;
  DrawTextW(screen, text.c_str(), static_cast<int>(text.size()), &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  RestoreDC(screen, before);
}
