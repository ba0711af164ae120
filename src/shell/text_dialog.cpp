#include "shell/text_dialog.h"

#include "base/windows_text.h"
#include "shell/control_ids.h"
#include "shell/themed_controls.h"
#include "shell/win32_helpers.h"
#include "shell/window_layout.h"

#include <algorithm>
#include <array>

namespace {

// In dialog units.
constexpr UINT kTabStop = 72;
constexpr LONG kDialogMargin = 7;
constexpr LONG kButtonWidth = 50;
constexpr LONG kButtonHeight = 14;
constexpr LONG kBarWidth = 24;   // scroll bar and borders of the text
constexpr LONG kTextBorder = 10; // above and below the text

struct TextDialog {
  std::wstring title;
  std::wstring text; // lines end in "\r\n"
};

// Dialog units to pixels.
SIZE fromUnits(HWND dialog, LONG width, LONG height) {
  RECT units{0, 0, width, height};
  MapDialogRect(dialog, &units);
  return {units.right, units.bottom};
}

// The text above the buttons, which are in the lower right corner.
void placeDialogControls(HWND dialog) {
  const SIZE client = clientSizeOf(dialog);
  const SIZE margin = fromUnits(dialog, kDialogMargin, kDialogMargin);
  const SIZE button = fromUnits(dialog, kButtonWidth, kButtonHeight);
  const LONG buttonTop = client.cy - margin.cy - button.cy;
  const LONG closeLeft = client.cx - margin.cx - button.cx;
  MoveWindow(GetDlgItem(dialog, kTextId), margin.cx, margin.cy, client.cx - 2 * margin.cx, buttonTop - 2 * margin.cy,
             TRUE);
  MoveWindow(GetDlgItem(dialog, kCopyTextId), closeLeft - margin.cx - button.cx, buttonTop, button.cx, button.cy, TRUE);
  MoveWindow(GetDlgItem(dialog, IDCANCEL), closeLeft, buttonTop, button.cx, button.cy, TRUE);
}

// Sizes the dialog to its text, up to three quarters of the work area, and centres it.
void sizeDialog(HWND dialog, const std::wstring &text) {
  const HWND edit = GetDlgItem(dialog, kTextId);
  const HDC screen = GetDC(edit);
  const HGDIOBJ previous = SelectObject(screen, reinterpret_cast<HGDIOBJ>(SendMessageW(edit, WM_GETFONT, 0, 0)));
  const LONG tab = fromUnits(dialog, kTabStop, 0).cx;
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen, &metrics);
  SIZE wanted{};
  for (size_t start = 0; start < text.size();) {
    const size_t end = std::min(text.find(L"\r\n", start), text.size());
    const int tabs = static_cast<int>(tab);
    const DWORD extent = GetTabbedTextExtentW(screen, text.c_str() + start, static_cast<int>(end - start), 1, &tabs);
    wanted.cx = std::max(wanted.cx, LONG{LOWORD(extent)});
    wanted.cy += metrics.tmHeight;
    start = end + 2;
  }
  SelectObject(screen, previous);
  ReleaseDC(edit, screen);

  const RECT work = workAreaOf(dialog);
  const SIZE around = fromUnits(dialog, 2 * kDialogMargin + kBarWidth, 3 * kDialogMargin + kButtonHeight + kTextBorder);
  const SIZE outer = windowSizeOf(dialog);
  const SIZE client = clientSizeOf(dialog);
  const SIZE workSize = sizeOf(work);
  const SIZE size{std::min(wanted.cx + around.cx + outer.cx - client.cx, workSize.cx * 3 / 4),
                  std::min(wanted.cy + around.cy + outer.cy - client.cy, workSize.cy * 3 / 4)};
  const RECT place = centredOnWorkArea(size, work);
  MoveWindow(dialog, place.left, place.top, size.cx, size.cy, FALSE);
}

// These keys scroll; the caret alone would first move within the lines that are seen already.
LRESULT CALLBACK editProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
  struct ScrollKey {
    WPARAM key;
    WORD request;
  };
  constexpr std::array<ScrollKey, 6> kScrollKeys{{{VK_NEXT, SB_PAGEDOWN},
                                                  {VK_PRIOR, SB_PAGEUP},
                                                  {VK_DOWN, SB_LINEDOWN},
                                                  {VK_UP, SB_LINEUP},
                                                  {VK_END, SB_BOTTOM},
                                                  {VK_HOME, SB_TOP}}};
  const bool selects = GetKeyState(VK_SHIFT) < 0;
  for (const auto &[key, request] : kScrollKeys) {
    if (message == WM_KEYDOWN && wParam == key && !selects) return SendMessageW(edit, WM_VSCROLL, request, 0);
  }
  const auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(edit, GWLP_USERDATA));
  return CallWindowProcW(procedure, edit, message, wParam, lParam);
}

void startDialog(HWND dialog, const TextDialog &content) {
  const HWND edit = GetDlgItem(dialog, kTextId);
  SetWindowTextW(dialog, content.title.c_str());
  SendMessageW(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&kTabStop));
  SetWindowTextW(edit, content.text.c_str());
  sizeDialog(dialog, content.text);
  placeDialogControls(dialog);
  SetWindowLongPtrW(edit, GWLP_USERDATA, GetWindowLongPtrW(edit, GWLP_WNDPROC));
  SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(editProcedure));
  SetFocus(edit);
  SendMessageW(edit, EM_SETSEL, 0, 0);
}

INT_PTR CALLBACK textDialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_INITDIALOG: startDialog(dialog, *reinterpret_cast<const TextDialog *>(lParam)); return FALSE;
  case WM_SIZE: placeDialogControls(dialog); return TRUE;
  case WM_COMMAND:
    if (LOWORD(wParam) == kCopyTextId) {
      SendDlgItemMessageW(dialog, kTextId, EM_SETSEL, 0, -1);
      SendDlgItemMessageW(dialog, kTextId, WM_COPY, 0, 0);
    } else if (LOWORD(wParam) == IDCANCEL) {
      EndDialog(dialog, 0);
    }
    return TRUE;
  default: return FALSE;
  }
}

} // namespace

void showTextDialog(HWND owner, const std::string &title, const std::string &text) {
  TextDialog content{.title = toUtf16(title), .text = {}};
  for (const wchar_t letter : toUtf16(text.substr(0, text.find_last_not_of('\n') + 1))) {
    if (letter == L'\n') content.text += L'\r';
    content.text += letter;
  }
  const ThemedControls themed;
  DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kTextDialog), owner, textDialogProcedure,
                  reinterpret_cast<LPARAM>(&content));
}
