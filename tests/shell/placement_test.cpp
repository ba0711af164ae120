// Full screen, and the window's place from one start to the next.
#include "shell/differences.h"
#include "shell/registry_settings.h"

#include <cstring>

namespace {

struct Placement {
  WINDOWPLACEMENT stored{};
  RECT place{};
  std::array<LONG, 2> styles{};

  explicit Placement(HWND window) : styles{GetWindowLongA(window, GWL_STYLE), GetWindowLongA(window, GWL_EXSTYLE)} {
    stored.length = sizeof stored;
    GetWindowPlacement(window, &stored);
    GetWindowRect(window, &place);
  }

  bool operator==(const Placement &other) const { return std::memcmp(this, &other, sizeof other) == 0; }
};

RECT placeOf(HWND window) { return Placement(window).place; }

void move(const ShellWindow &window, POINT corner) {
  SetWindowPos(window.main.window, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

bool coversTheScreen(const ShellWindow &window) {
  const RECT screen = monitorOf(window.main.window).rcMonitor;
  const SIZE size = clientSizeOf(window.view);
  RECT view{0, 0, size.cx, size.cy};
  MapWindowPoints(window.view, nullptr, reinterpret_cast<POINT *>(&view), 2);
  return EqualRect(&view, &screen) != FALSE && GetMenu(window.main.window) == nullptr;
}

void pressAltEnter(ShellWindow &window) {
  window.run([&] {
    std::array<BYTE, 256> keys{};
    keys[VK_MENU] = 0x80;
    SetKeyboardState(keys.data());
    MSG message{window.view, WM_SYSKEYDOWN, VK_RETURN, KF_ALTDOWN << 16, 0, {}};
    handleMessage(window.main, message);
  });
}

TEST(FullScreen, LeavingItRestoresTheWindow) {
  const std::vector<std::function<void(ShellWindow &)>> turns{
      [](auto &window) { window.press(VK_F11); }, pressAltEnter,
      [](auto &window) { SendMessageA(window.view, WM_LBUTTONDBLCLK, 0, 0); }};
  for (const int how : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED}) {
    ShellWindow window("WHEEL.GL5", how);
    if (how == SW_SHOWNORMAL) move(window, {-50, 900}); // partly off the screen
    const Placement before(window.main.window);
    for (const auto &turn : turns) {
      turn(window);
      EXPECT_TRUE(coversTheScreen(window)) << how;
      turn(window);
      EXPECT_TRUE(Placement(window.main.window) == before) << how;
    }
    window.press(VK_F11);
    SendMessageA(window.main.window, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&before.place));
    ShowWindow(window.main.window, SW_MINIMIZE); // gives the placement a place of the icon
    ShowWindow(window.main.window, SW_RESTORE);
    EXPECT_TRUE(coversTheScreen(window)) << how;
    window.press(VK_ESCAPE);
    const RECT place = placeOf(window.main.window);
    EXPECT_TRUE(EqualRect(&place, &before.place)) << how;
    EXPECT_EQ(IsZoomed(window.main.window) != FALSE, how == SW_SHOWMAXIMIZED);
  }
}

TEST(FullScreen, APictureOfAnotherSizeIsFollowedAfterwards) {
  ShellWindow window("SUNSET.EVA");
  window.press(VK_F11);
  window.press(VK_SPACE); // ends with the drop
  window.drop(writeSample(window.folder, "COAST.SC5"));
  EXPECT_TRUE(coversTheScreen(window));
  window.press(VK_ESCAPE);
  EXPECT_TRUE(window.settles());
  EXPECT_EQ(differences(window), "");
}

TEST(WindowMemory, TheNextWindowOpensWhereTheLastWasClosed) {
  SIZE fitted{};
  { // in full screen
    ShellWindow window("WHEEL.GL5");
    move(window, {120, 90});
    fitted = windowSizeOf(window.main.window);
    window.press(VK_F11);
  }
  {
    ShellWindow window("WHEEL.GL5", SW_SHOWNORMAL, true);
    const RECT place = placeOf(window.main.window);
    EXPECT_TRUE(place.left == 120 && place.top == 90 && sizeOf(place).cx == fitted.cx && sizeOf(place).cy == fitted.cy);
  }
  {
    const HWND other = CreateWindowA("KorilanMainWindow", "", WS_POPUP | WS_VISIBLE, 120, 90, 50, 50, nullptr, nullptr,
                                     nullptr, nullptr);
    ShellWindow window("WHEEL.GL5", SW_SHOWNORMAL, true);
    const int step = GetSystemMetrics(SM_CYCAPTION);
    const RECT place = placeOf(window.main.window);
    EXPECT_TRUE(place.left == 120 + step && place.top == 90 + step);
    DestroyWindow(other);
  } // closed where it evaded: the place stays
  RECT byHand{100, 80, 850, 780};
  {
    ShellWindow window("WHEEL.GL5", SW_SHOWNORMAL, true);
    EXPECT_EQ(placeOf(window.main.window).left, 120);
    SendMessageA(window.main.window, WM_SIZING, WMSZ_RIGHT, reinterpret_cast<LPARAM>(&byHand));
    SetWindowPos(window.main.window, nullptr, 100, 80, 750, 700, SWP_NOZORDER);
    ShowWindow(window.main.window, SW_MAXIMIZE);
  }
  ShellWindow window("WHEEL.GL5", SW_SHOWNORMAL, true);
  EXPECT_TRUE(IsZoomed(window.main.window));
  ShowWindow(window.main.window, SW_RESTORE);
  const RECT place = placeOf(window.main.window);
  EXPECT_TRUE(EqualRect(&place, &byHand));
}

TEST(WindowMemory, AWrongOrDistantPlaceStaysOnTheScreen) {
  using Row = std::array<const char *, 2>;
  for (const auto &[place, size] : {Row{"30000,30000", "9000,9000"}, Row{"-30000,5", "0,500"}, Row{"99999,1", "-5,-5"},
                                    Row{"1,2,3", "x"}, Row{"", "500"}, Row{"7", ","}}) {
    writeRegistryValue("Place", place);
    writeRegistryValue("Size", size);
    ShellWindow window("", SW_SHOWNORMAL, true);
    const RECT work = workAreaOf(window.main.window), now = placeOf(window.main.window);
    EXPECT_TRUE(now.left >= work.left && now.top >= work.top && now.right <= work.right && now.bottom <= work.bottom);
    EXPECT_EQ(window.main.sizedByHand, std::string_view(size) == "9000,9000");
  }
  constexpr DWORD kNumber = 7;
  RegSetKeyValueA(HKEY_CURRENT_USER, "Software\\Korilan", "Place", REG_DWORD, &kNumber, sizeof kNumber);
  EXPECT_TRUE(IsWindowVisible(ShellWindow("", SW_SHOWNORMAL, true).main.window));
}

} // namespace
