#include "shell/text_dialog.h"

#include "shell/control_ids.h"
#include "shell/themed_controls.h"
#include "shell/window_layout.h"

#include <algorithm>

namespace {

// In quarters of an average character, as dialogs count.
constexpr UINT kTabStop = 72;

struct TextDialog {
  const std::string &title;
  std::string text; // lines ended as edit controls want it
};

SIZE clientSizeOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

// A length of the dialog template in pixels.
SIZE fromUnits(HWND dialog, LONG width, LONG height) {
  RECT units{0, 0, width, height};
  MapDialogRect(dialog, &units);
  return {units.right, units.bottom};
}

// The text above, the buttons in the lower right corner.
void placeDialogControls(HWND dialog) {
  const SIZE client = clientSizeOf(dialog);
  const SIZE margin = fromUnits(dialog, 7, 7);
  const SIZE button = fromUnits(dialog, 50, 14);
  const LONG buttonTop = client.cy - margin.cy - button.cy;
  const LONG closeLeft = client.cx - margin.cx - button.cx;
  MoveWindow(GetDlgItem(dialog, kTextId), margin.cx, margin.cy, client.cx - 2 * margin.cx, buttonTop - 2 * margin.cy,
             TRUE);
  MoveWindow(GetDlgItem(dialog, kCopyTextId), closeLeft - margin.cx - button.cx, buttonTop, button.cx, button.cy, TRUE);
  MoveWindow(GetDlgItem(dialog, IDCANCEL), closeLeft, buttonTop, button.cx, button.cy, TRUE);
}

// As large as the text wants, but no larger than a part of the work area.
void sizeDialog(HWND dialog, const std::string &text) {
  const HWND edit = GetDlgItem(dialog, kTextId);
  const HDC screen = GetDC(edit);
  const HGDIOBJ former = SelectObject(screen, reinterpret_cast<HGDIOBJ>(SendMessageA(edit, WM_GETFONT, 0, 0)));
  const LONG tab = fromUnits(dialog, kTabStop, 0).cx;
  TEXTMETRICA metrics{};
  GetTextMetricsA(screen, &metrics);
  SIZE wanted{};
  for (size_t start = 0; start < text.size();) {
    const size_t end = std::min(text.find("\r\n", start), text.size());
    const int tabs = static_cast<int>(tab);
    const DWORD extent = GetTabbedTextExtentA(screen, text.c_str() + start, static_cast<int>(end - start), 1, &tabs);
    wanted.cx = std::max(wanted.cx, LONG{LOWORD(extent)});
    wanted.cy += metrics.tmHeight;
    start = end + 2;
  }
  SelectObject(screen, former);
  ReleaseDC(edit, screen);

  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT &work = monitor.rcWork;
  const SIZE around = fromUnits(dialog, 2 * 7 + 24, 3 * 7 + 14 + 10); // margins, scroll bar, buttons
  const SIZE frame = [dialog] {
    RECT outer{};
    GetWindowRect(dialog, &outer);
    const SIZE client = clientSizeOf(dialog);
    return SIZE{outer.right - outer.left - client.cx, outer.bottom - outer.top - client.cy};
  }();
  const SIZE size{std::min(wanted.cx + around.cx + frame.cx, (work.right - work.left) * 3 / 4),
                  std::min(wanted.cy + around.cy + frame.cy, (work.bottom - work.top) * 3 / 4)};
  const RECT place = centredOnWorkArea(size, work);
  MoveWindow(dialog, place.left, place.top, size.cx, size.cy, FALSE);
}

void startDialog(HWND dialog, const TextDialog &content) {
  const HWND edit = GetDlgItem(dialog, kTextId);
  SetWindowTextA(dialog, content.title.c_str());
  SendMessageA(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&kTabStop));
  SetWindowTextA(edit, content.text.c_str());
  sizeDialog(dialog, content.text);
  placeDialogControls(dialog);
  SetFocus(GetDlgItem(dialog, IDCANCEL)); // in the text all would be selected
}

INT_PTR CALLBACK textDialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_INITDIALOG: startDialog(dialog, *reinterpret_cast<const TextDialog *>(lParam)); return FALSE;
  case WM_SIZE: placeDialogControls(dialog); return TRUE;
  case WM_COMMAND:
    if (LOWORD(wParam) == kCopyTextId) {
      SendDlgItemMessageA(dialog, kTextId, EM_SETSEL, 0, -1);
      SendDlgItemMessageA(dialog, kTextId, WM_COPY, 0, 0);
    } else if (LOWORD(wParam) == IDCANCEL) {
      EndDialog(dialog, 0);
    }
    return TRUE;
  default: return FALSE;
  }
}

} // namespace

void showTextDialog(HWND owner, const std::string &title, const std::string &text) {
  TextDialog content{.title = title, .text = {}};
  for (const char letter : text.substr(0, text.find_last_not_of('\n') + 1)) {
    if (letter == '\n') content.text += '\r';
    content.text += letter;
  }
  const ThemedControls themed;
  DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kTextDialog), owner, textDialogProcedure,
                  reinterpret_cast<LPARAM>(&content));
}
