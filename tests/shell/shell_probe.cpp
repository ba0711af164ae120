// A library that Windows loads into the viewer's process by way of a message hook.
#include "shell/shell_probe.h"

#include "shell/control_ids.h"

#include <windows.h>

#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

// Without the marks of access keys; a shortcut stands behind a tab.
std::string itemText(HMENU menu, UINT position) {
  char buffer[64] = "";
  GetMenuStringA(menu, position, buffer, sizeof buffer, MF_BYPOSITION);
  std::string text = buffer;
  std::erase(text, '&');
  std::replace(text.begin(), text.end(), '\t', ' ');
  return text;
}

std::string menuStates(HWND window) {
  std::string lines;
  const HMENU bar = GetMenu(window);
  for (int i = 0; i < GetMenuItemCount(bar); ++i) {
    const auto barPosition = static_cast<UINT>(i);
    const HMENU menu = GetSubMenu(bar, i);
    const std::string name = itemText(bar, barPosition);
    // The state of an item with a menu holds the number of entries in its high byte.
    if ((GetMenuState(bar, barPosition, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) != 0) lines += name + " grey\n";
    for (int j = 0; j < GetMenuItemCount(menu); ++j) {
      const UINT state = GetMenuState(menu, static_cast<UINT>(j), MF_BYPOSITION);
      if ((state & MF_SEPARATOR) != 0) continue;
      lines += name + "/" + itemText(menu, static_cast<UINT>(j));
      if ((state & (MF_GRAYED | MF_DISABLED)) != 0) lines += " grey";
      if ((state & MF_CHECKED) != 0) lines += " checked";
      lines += '\n';
    }
  }
  return lines;
}

// What a drag ends in: a list of wide names, each and the whole ended by a zero.
void dropFile(HWND window, const char *path) {
  const int letters = MultiByteToWideChar(CP_UTF8, 0, path, -1, nullptr, 0);
  const size_t bytes = sizeof(DROPFILES) + (static_cast<size_t>(letters) + 1) * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GHND, bytes);
  auto *drop = static_cast<DROPFILES *>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->fWide = TRUE;
  MultiByteToWideChar(CP_UTF8, 0, path, -1, reinterpret_cast<wchar_t *>(drop + 1), letters);
  GlobalUnlock(memory);
  PostMessageA(GetDlgItem(window, kMainViewId), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

} // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK probeMessage(int code, WPARAM wParam, LPARAM lParam) {
  static const UINT askMenus = RegisterWindowMessageA(kAskMenusMessage);
  static const UINT drop = RegisterWindowMessageA(kDropFileMessage);
  const auto *sent = reinterpret_cast<const CWPSTRUCT *>(lParam);
  if (code == HC_ACTION && (sent->message == askMenus || sent->message == drop)) {
    const HANDLE mapping = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, kSharedTextName);
    auto *text = static_cast<char *>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, kSharedTextBytes));
    if (text != nullptr && sent->message == drop) dropFile(sent->hwnd, text);
    if (text != nullptr && sent->message == askMenus)
      std::strncpy(text, menuStates(sent->hwnd).c_str(), kSharedTextBytes - 1);
    if (text != nullptr) UnmapViewOfFile(text);
    CloseHandle(mapping);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
