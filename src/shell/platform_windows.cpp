#include "shell/platform_windows.h"

#include "shell/window_sync.h"

#include <cstring>

namespace {

MainWindow &mainWindowOf(void *context) { return *static_cast<MainWindow *>(context); }

void runPendingEvents(void *context) {
  // A depacker asks after every byte; to look for events that often would take far longer than the depacking.
  constexpr DWORD kLeastPauseMilliseconds = 5;
  MainWindow &main = mainWindowOf(context);
  const DWORD now = GetTickCount();
  if (now - main.lastEventPass < kLeastPauseMilliseconds) return;
  main.lastEventPass = now;
  syncWindow(main);
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam)); // for the main loop
      return;
    }
    handleMessage(message);
  }
}

void presentPicture(void *context, std::span<const uint32_t> frameBits, int32_t width, int32_t height) {
  MainWindow &main = mainWindowOf(context);
  if (main.window != nullptr) setPicture(main.mainView, frameBits, width, height);
}

// Another program may hold the clipboard for a moment.
bool openClipboardPatiently(HWND owner) {
  constexpr int kAttempts = 10;
  constexpr DWORD kPauseMilliseconds = 20;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (attempt > 0) Sleep(kPauseMilliseconds);
    if (OpenClipboard(owner)) return true;
  }
  return false;
}

HGLOBAL globalCopy(std::span<const uint8_t> bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (memory == nullptr) return nullptr;
  void *into = GlobalLock(memory);
  if (into == nullptr) {
    GlobalFree(memory);
    return nullptr;
  }
  std::memcpy(into, bytes.data(), bytes.size());
  GlobalUnlock(memory);
  return memory;
}

void copyToClipboard(void *context, std::span<const uint8_t> bitmap) {
  const MainWindow &main = mainWindowOf(context);
  const HGLOBAL memory = globalCopy(bitmap);
  if (memory == nullptr) return;
  bool taken = false; // from then on the memory belongs to the clipboard
  if (openClipboardPatiently(main.window)) {
    EmptyClipboard();
    taken = SetClipboardData(CF_DIB, memory) != nullptr;
    CloseClipboard();
  }
  if (!taken) GlobalFree(memory);
}

void showMessage(void *context, const std::string &title, const std::string &text, MessageIcon icon) {
  MainWindow &main = mainWindowOf(context);
  syncWindow(main);
  const auto iconFlag = static_cast<UINT>(icon == MessageIcon::kInformation ? MB_ICONINFORMATION : MB_ICONWARNING);
  MessageBoxA(main.window, text.c_str(), title.c_str(), MB_OK | iconFlag);
}

void exitProgram(void *context) {
  const MainWindow &main = mainWindowOf(context);
  if (main.window != nullptr) DestroyWindow(main.window);
}

} // namespace

PlatformOps windowsPlatform(MainWindow &main) {
  return {
      .context = &main,
      .files = &systemFiles(),
      .runPendingEvents = runPendingEvents,
      .presentPicture = presentPicture,
      .copyToClipboard = copyToClipboard,
      .showMessage = showMessage,
      .exitProgram = exitProgram,
  };
}
