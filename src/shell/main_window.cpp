#include "shell/main_window.h"

#include "base/windows_text.h"
#include "core/colour_readout.h"
#include "core/commands.h"
#include "core/keys.h"
#include "core/menus.h"
#include "core/palette_commands.h"
#include "core/scaling.h"
#include "core/video_commands.h"
#include "shell/control_ids.h"
#include "shell/menu_bar.h"
#include "shell/scale_functions.h"
#include "shell/swatch_tips.h"
#include "shell/swatches.h"
#include "shell/system_library.h"
#include "shell/win32_helpers.h"
#include "shell/window_controls.h"
#include "shell/window_memory.h"
#include "shell/window_placement.h"
#include "shell/window_sync.h"
#include "state/labels.h"
#include "video/playback.h"

#include <shellapi.h>

#include <string>

namespace {

constexpr wchar_t kWindowClass[] = L"KorilanMainWindow";

// Posted to the main window after its first paint. The numbers before are messages of MainView.
constexpr UINT kMakeControls = WM_APP + 4;

// Returns the path of the first dropped file and ends the drop.
std::string takeDroppedPath(HDROP drop) {
  const HMODULE shell = systemLibrary("shell32.dll");
  const auto query = libraryFunction<decltype(DragQueryFileW)>(shell, "DragQueryFileW");
  const auto finish = libraryFunction<decltype(DragFinish)>(shell, "DragFinish");
  if (query == nullptr || finish == nullptr) return {};
  std::wstring wide(query(drop, 0, nullptr, 0), L'\0');
  query(drop, 0, wide.data(), static_cast<UINT>(wide.size() + 1));
  finish(drop);
  return toUtf8(wide);
}

void openDroppedFile(MainWindow &main, HDROP drop) {
  const std::string path = takeDroppedPath(drop);
  const bool behindDialog = !IsWindowEnabled(main.window);
  if (path.empty() || behindDialog) return;
  SetForegroundWindow(main.window);
  dropFile(*main.viewer, path);
}

void scrollFrames(const MainWindow &main, int request) {
  constexpr int kPageFrames = 12;
  SCROLLINFO track{};
  track.cbSize = sizeof track;
  track.fMask = SIF_TRACKPOS;
  GetScrollInfo(main.frameBar, SB_CTL, &track);
  ViewerState &viewer = *main.viewer;
  const ScrollBar &bar = viewer.window.HScroll1;
  switch (request) {
  case SB_LINELEFT: HScroll1_Change(viewer, bar.value - 1); break;
  case SB_LINERIGHT: HScroll1_Change(viewer, bar.value + 1); break;
  case SB_PAGELEFT: HScroll1_Change(viewer, bar.value - kPageFrames); break;
  case SB_PAGERIGHT: HScroll1_Change(viewer, bar.value + kPageFrames); break;
  case SB_LEFT: HScroll1_Change(viewer, 0); break;
  case SB_RIGHT: HScroll1_Change(viewer, bar.maximum); break;
  case SB_THUMBTRACK:
  case SB_THUMBPOSITION: HScroll1_Change(viewer, track.nTrackPos); break;
  default: return;
  }
  SetScrollPos(main.frameBar, SB_CTL, bar.value, TRUE); // moves the thumb back if the change was refused
}

void runMenuCommand(ViewerState &viewer, UINT command) {
  if (const auto choice = menuChoiceOf(command)) {
    runMenuChoice(viewer, choice->row, choice->choice);
  } else {
    runMenuRow(viewer, size_t{command} - kFirstMenuCommand);
  }
}

void runControl(ViewerState &viewer, int id) {
  if (id == kImage1Id) Image1_Click(viewer);
  if (id == kImage1Id + 1) Image2_Click(viewer);
}

// Returns when the mouse button is up again. A move of the window begins half a second after the press.
LRESULT pressFrame(const MainWindow &main, WPARAM part, LPARAM place) {
  pausePlayback(*main.viewer);
  const LRESULT result = DefWindowProcW(main.window, WM_NCLBUTTONDOWN, part, place);
  resumePlayback(*main.viewer);
  return result;
}

void releaseWindow(MainWindow &main) {
  rememberWindow(main);
  if (main.shown.fullScreen) DestroyMenu(main.menuBar); // belongs to no window
  main.window = nullptr;
  releaseFont(main);
  PostQuitMessage(0);
}

// Messages about size, place, scale and pointer.
LRESULT handlePlacement(MainWindow &main, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_SIZE:
    if (main.shown.fullScreen && wParam != SIZE_MINIMIZED) coverMonitor(main);
    if (wParam == SIZE_RESTORED && main.fitLater) {
      fitWindow(main);
    } else if (wParam != SIZE_MINIMIZED) {
      placeControls(main);
    }
    syncWindow(main); // Fit follows the size
    return 0;
  case WM_GETMINMAXINFO: {
    if (main.shown.fullScreen) break;
    const SIZE minimum = minWindowSize(main);
    reinterpret_cast<MINMAXINFO *>(lParam)->ptMinTrackSize = {minimum.cx, minimum.cy};
    return 0;
  }
  case WM_GETDPISCALEDSIZE:
    if (main.shown.fullScreen || IsZoomed(main.window) || IsIconic(main.window)) break;
    *reinterpret_cast<SIZE *>(lParam) = sizeAtScale(main, static_cast<UINT>(wParam));
    return TRUE;
  case WM_DPICHANGED:
    changeScale(main, LOWORD(wParam), *reinterpret_cast<const RECT *>(lParam));
    syncWindow(main);
    return 0;
  case WM_DISPLAYCHANGE:
    if (main.shown.fullScreen) coverMonitor(main);
    main.fullScreen.displayChanged = true;
    placeWindow(main);
    return 0;
  case WM_SETTINGCHANGE:
    if (wParam == SPI_SETWORKAREA) {
      placeWindow(main);
    } else {
      changeSettings(main, wParam == SPI_SETNONCLIENTMETRICS);
    }
    break;
  case WM_ENDSESSION:
    if (wParam != FALSE) rememberWindow(main); // no WM_DESTROY follows
    return 0;
  case WM_SETCURSOR:
    if (main.shown.fullScreen && IsWindowEnabled(main.window) && trackPointer(main)) return TRUE;
    break;
  case WM_THEMECHANGED: changeSettings(main, false); break;
  default: break;
  }
  return DefWindowProcW(main.window, message, wParam, lParam);
}

LRESULT CALLBACK mainWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto *main = reinterpret_cast<MainWindow *>(GetWindowLongPtrW(window, GWLP_USERDATA));
  // Windows 10 1607 scales title bar and menus only if asked; later versions do so by the manifest.
  if (message == WM_NCCREATE) scaleFunctions().enableNonClientScaling(window);
  if (main == nullptr || main->window == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_ENTERSIZEMOVE || message == WM_EXITSIZEMOVE) setMoving(*main, message == WM_ENTERSIZEMOVE);

  switch (message) {
  case WM_COMMAND:
    if (lParam == 0) {
      runMenuCommand(*main->viewer, LOWORD(wParam));
    } else if (HIWORD(wParam) == BN_CLICKED) {
      runControl(*main->viewer, LOWORD(wParam));
    }
    break;
  case WM_HSCROLL: scrollFrames(*main, LOWORD(wParam)); break;
  case WM_NCLBUTTONDOWN: return pressFrame(*main, wParam, lParam);
  case WM_ENTERMENULOOP:
  case WM_ENTERSIZEMOVE: pausePlayback(*main->viewer); return 0;
  case WM_EXITMENULOOP:
  case WM_EXITSIZEMOVE: resumePlayback(*main->viewer); return 0;
  case kMakeControls: makeLabels(*main); return 0;
  case WM_LBUTTONDBLCLK: menuFullScreen_Click(*main->viewer); break;
  case WM_TIMER:
    if (wParam == kPointerTimer) hideRestingPointer(*main);
    return 0;
  case WM_SETFOCUS: SetFocus(main->mainView.window); return 0;
  case WM_GETFONT: return reinterpret_cast<LRESULT>(main->font);
  case WM_NOTIFY: provideTipText(*reinterpret_cast<NMHDR *>(lParam)); return 0;
  case WM_DRAWITEM: drawItem(*main, *reinterpret_cast<const DRAWITEMSTRUCT *>(lParam)); return TRUE;
  case kMouseOverView: moveMouse(*main->viewer, static_cast<int32_t>(wParam), static_cast<int32_t>(lParam)); break;
  case kMouseLeftView: leaveMouse(*main->viewer); break;
  case kScaleTurned: stepScale(*main->viewer, static_cast<int32_t>(wParam)); break;
  case WM_MOUSEWHEEL: return SendMessageW(main->mainView.window, message, wParam, lParam); // over another control
  case kViewNotDrawn: reportNoMemory(*main->viewer); break;
  case WM_DROPFILES: openDroppedFile(*main, reinterpret_cast<HDROP>(wParam)); break;
  case WM_CLOSE: menuExit_Click(*main->viewer); break;
  case WM_ENTERIDLE: break; // a dialog may have run a command: sync while it is open
  case WM_DESTROY: releaseWindow(*main); return 0;
  default: return handlePlacement(*main, message, wParam, lParam);
  }
  syncWindow(*main);
  return 0;
}

void registerWindowClass(HINSTANCE instance) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = mainWindowProcedure;
  windowClass.hInstance = instance;
  windowClass.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(kProgramIcon));
  windowClass.hIconSm = static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(kProgramIcon), IMAGE_ICON,
                                                      GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), 0));
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszClassName = kWindowClass;
  RegisterClassExW(&windowClass);
}

} // namespace

bool createMainWindow(MainWindow &main, ViewerState &viewer, HINSTANCE instance) {
  registerWindowClass(instance);
  main.viewer = &viewer;
  main.menuBar = buildMenuBar();
  const WindowMemory last = recallWindow(viewer);
  main.opensMaximised = last.maximised;
  main.window = CreateWindowExW(WS_EX_ACCEPTFILES, kWindowClass, toUtf16(main.shown.caption).c_str(),
                                WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, last.corner.x, last.corner.y, last.size.cx,
                                last.size.cy, nullptr, main.menuBar, instance, nullptr);
  if (main.window == nullptr || !createMainView(main.mainView, viewer, main.window, instance)) return false;
  if (!last.sizedByHand) main.fittedSize = windowSizeOf(main.window);
  allowDrops(main.window);
  updateFont(main, scaleFunctions().dpiForWindow(main.window));
  SetWindowLongPtrW(main.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&main));
  return true;
}

void showMainWindow(MainWindow &main, int showCommand) {
  syncWindow(main);
  if (main.window == nullptr) return;
  showFitted(main, showCommand);
  UpdateWindow(main.window);
  UpdateWindow(main.mainView.window);
  PostMessageW(main.window, kMakeControls, 0, 0); // dispatched by the loops of menus and dialogs, too
}

void handleMessage(MainWindow &main, MSG &message) {
  // Alt makes a key a system key; without Alt one goes to a minimised window.
  const bool keyDown =
      message.message == WM_KEYDOWN || (message.message == WM_SYSKEYDOWN && (HIWORD(message.lParam) & KF_ALTDOWN) != 0);
  if (keyDown && main.window != nullptr) {
    const bool ctrl = GetKeyState(VK_CONTROL) < 0;
    const bool alt = GetKeyState(VK_MENU) < 0;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool repeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
    const auto code = static_cast<int>(message.wParam);
    if (pressKey(*main.viewer, {.code = code, .ctrl = ctrl, .alt = alt, .shift = shift, .repeated = repeated})) {
      syncWindow(main);
      return;
    }
  }
  if (!main.shown.fullScreen && IsDialogMessageW(main.window, &message)) return; // Tab moves the focus
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

int runMessageLoop(MainWindow &main) {
  for (MSG message;;) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == WM_QUIT) {
        stopWatching(main.fileWatch);
        return static_cast<int>(message.wParam);
      }
      handleMessage(main, message);
    }
    if (waitForMessages(main.fileWatch, *main.viewer)) syncWindow(main);
  }
}
