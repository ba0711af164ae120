#include "shell/platform_windows.h"

#include "base/disk_files.h"
#include "base/windows_text.h"
#include "shell/open_file_dialog.h"
#include "shell/preferences_dialog.h"
#include "shell/registry_settings.h"
#include "shell/show_in_folder.h"
#include "shell/text_dialog.h"
#include "shell/themed_controls.h"
#include "shell/window_sync.h"
#include "video/playback.h"

namespace {

MainWindow &mainWindowOf(void *context) { return *static_cast<MainWindow *>(context); }

void runPendingEvents(void *context) {
  // Depackers call this after every line: a pass that often would cost far more than depacking.
  constexpr DWORD kMinPauseMilliseconds = 5;
  MainWindow &main = mainWindowOf(context);
  const DWORD now = GetTickCount();
  if (main.viewer->activity == Activity::kLoading && now - main.lastEventPass < kMinPauseMilliseconds) return;
  main.lastEventPass = now;
  if (IsWindowVisible(main.window)) syncWindow(main);
  // While a run ends the events stay in the queue: a dialog would keep the run from ending, and Close from being done.
  const ViewerState &viewer = *main.viewer;
  const auto runEnds = [&] { return viewer.activity == Activity::kPlaying && !videoPlaying(viewer); };
  MSG message;
  while (!runEnds() && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam)); // the main loop ends on it
      return;
    }
    handleMessage(main, message);
  }
}

uint32_t tickCount(void *) { return GetTickCount(); }

void waitForEvents(void *, uint32_t milliseconds) {
  // cppcheck-suppress nullPointer ; the count of handles is 0
  MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

// MainView paints from the frame itself.
void presentPicture(void *, std::span<const uint32_t>, int32_t, int32_t) {}

// Retries: another program may have the clipboard open.
bool openClipboardPatiently(HWND owner) {
  constexpr int kAttempts = 10;
  constexpr DWORD kPauseMilliseconds = 20;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (attempt > 0) Sleep(kPauseMilliseconds);
    if (OpenClipboard(owner)) return true;
  }
  return false;
}

// nullptr if there is not enough memory.
HGLOBAL globalCopy(const ClipboardForm &form) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, form.bytes);
  auto *into = static_cast<uint8_t *>(memory != nullptr ? GlobalLock(memory) : nullptr);
  if (into == nullptr) {
    if (memory != nullptr) GlobalFree(memory);
    return nullptr;
  }
  form.write({into, form.bytes});
  GlobalUnlock(memory);
  return memory;
}

// On success the clipboard owns the memory.
bool offer(UINT format, HGLOBAL memory) {
  if (SetClipboardData(format, memory) != nullptr) return true;
  // cppcheck-suppress doubleFree ; after a failure the program owns it
  GlobalFree(memory);
  return false;
}

// The clipboard keeps its contents if there is not enough memory. The forms hold the same pixels: programs take the
// first one that they know.
bool copyToClipboard(void *context, const ClipboardPicture &picture) {
  struct Offer {
    UINT format;
    const ClipboardForm &form;
    HGLOBAL memory = nullptr;
  };
  std::array<Offer, 3> offers{
      {{CF_DIBV5, picture.bitmapV5}, {CF_DIB, picture.bitmap}, {RegisterClipboardFormatW(L"PNG"), picture.png}}};
  bool ready = true;
  for (Offer &each : offers) {
    if (each.form.bytes == 0) continue;
    each.memory = ready ? globalCopy(each.form) : nullptr;
    ready = ready && each.memory != nullptr;
  }
  if (!ready || !openClipboardPatiently(mainWindowOf(context).window)) {
    for (const Offer &each : offers) GlobalFree(each.memory);
    return false;
  }
  EmptyClipboard();
  bool taken = true;
  for (const Offer &each : offers) taken = (each.memory == nullptr || offer(each.format, each.memory)) && taken;
  CloseClipboard();
  return taken;
}

std::string askOpenFileName(void *context, const std::string &filter, const std::string &initialDirectory) {
  return runOpenFileDialog(mainWindowOf(context).window, filter, initialDirectory);
}

bool showInFolder(void *, const std::string &path) { return showInFileManager(path); }

void showMessage(void *context, const std::string &title, const std::string &text, MessageIcon icon) {
  MainWindow &main = mainWindowOf(context);
  syncWindow(main);
  const auto iconFlag = static_cast<UINT>(icon == MessageIcon::kInformation ? MB_ICONINFORMATION
                                          : icon == MessageIcon::kWarning   ? MB_ICONWARNING
                                                                            : 0);
  pausePlayback(*main.viewer);
  const ThemedControls themed;
  MessageBoxW(main.window, toUtf16(text).c_str(), toUtf16(title).c_str(), MB_OK | iconFlag);
  resumePlayback(*main.viewer);
}

bool askYesNo(void *context, const std::string &title, const std::string &text) {
  MainWindow &main = mainWindowOf(context);
  syncWindow(main);
  pausePlayback(*main.viewer);
  const ThemedControls themed;
  const UINT style = MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2;
  const int answer = MessageBoxW(main.window, toUtf16(text).c_str(), toUtf16(title).c_str(), style);
  resumePlayback(*main.viewer);
  return answer == IDYES;
}

void showText(void *context, const std::string &title, const std::string &text) {
  MainWindow &main = mainWindowOf(context);
  syncWindow(main);
  pausePlayback(*main.viewer);
  showTextDialog(main.window, title, text);
  resumePlayback(*main.viewer);
}

void showPreferences(void *context) {
  const MainWindow &main = mainWindowOf(context);
  showPreferencesDialog(main.window, *main.viewer);
}

std::string readSetting(void *, const std::string &key) { return readRegistrySetting(key); }

void writeSetting(void *, const std::string &key, const std::string &value) { writeRegistrySetting(key, value); }

void deleteSetting(void *, const std::string &key) { deleteRegistrySetting(key); }

std::optional<std::string> readValue(void *, const std::string &name) { return readRegistryValue(name); }

void writeValue(void *, const std::string &name, const std::string &value) { writeRegistryValue(name, value); }

void notifyAssociations(void *) { notifyAssociationsChanged(); }

std::string programPath(void *) { return toUtf8(modulePath(nullptr)); }

void startSound(void *context, std::span<const uint8_t> image) { startLoop(mainWindowOf(context).sound, image); }

void holdSound(void *context) { holdLoop(mainWindowOf(context).sound); }

void resumeSound(void *context) { resumeLoop(mainWindowOf(context).sound); }

void stopSound(void *context, std::span<const uint8_t>) { stopLoop(mainWindowOf(context).sound); }

void exitProgram(void *context) {
  const MainWindow &main = mainWindowOf(context);
  if (main.window != nullptr) DestroyWindow(main.window);
}

} // namespace

PlatformOps windowsPlatform(MainWindow &main) {
  return {
      .context = &main,
      .files = &filesWithDisks(),
      .runPendingEvents = runPendingEvents,
      .tickCount = tickCount,
      .waitForEvents = waitForEvents,
      .presentPicture = presentPicture,
      .copyToClipboard = copyToClipboard,
      .askOpenFileName = askOpenFileName,
      .showInFolder = showInFolder,
      .showMessage = showMessage,
      .askYesNo = askYesNo,
      .showText = showText,
      .showPreferences = showPreferences,
      .readSetting = readSetting,
      .writeSetting = writeSetting,
      .deleteSetting = deleteSetting,
      .readValue = readValue,
      .writeValue = writeValue,
      .notifyAssociations = notifyAssociations,
      .programPath = programPath,
      .startSound = startSound,
      .holdSound = holdSound,
      .resumeSound = resumeSound,
      .stopSound = stopSound,
      .exitProgram = exitProgram,
  };
}
