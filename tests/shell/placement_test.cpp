// Full screen, and the window's place from one start to the next.
#include "shell/differences.h"
#include "shell/registry_settings.h"

namespace {

using Place = std::array<LONG, 4>;

Place placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return {place.left, place.top, place.right, place.bottom};
}

// Place, style and stored placement of the window.
std::string stateOf(const ShellWindow &window) {
  const HWND main = window.main.window;
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(main, &placement);
  return testing::PrintToString(std::tuple(placeOf(main), GetWindowLongA(main, GWL_STYLE), GetMenu(main))) +
         std::string(reinterpret_cast<const char *>(&placement), sizeof placement);
}

bool coversTheScreen(const ShellWindow &window) {
  const RECT screen = monitorOf(window.main.window).rcMonitor;
  RECT view{0, 0, clientSizeOf(window.view).cx, clientSizeOf(window.view).cy};
  MapWindowPoints(window.view, nullptr, reinterpret_cast<POINT *>(&view), 2);
  return EqualRect(&view, &screen) != FALSE && GetMenu(window.main.window) == nullptr;
}

TEST(FullScreen, LeavingItRestoresTheWindow) {
  for (const int how : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED}) {
    ShellWindow window("WHEEL.GL5", how);
    const HWND main = window.main.window;
    if (how == SW_SHOWNORMAL) SetWindowPos(main, nullptr, -50, 900, 0, 0, SWP_NOSIZE); // partly off the screen
    const Place before = placeOf(main);
    const std::function<void()> turns[] = {[&] { window.press(VK_F11); }, [&] { window.press(VK_RETURN, false, true); },
                                           [&] { SendMessageA(window.view, WM_LBUTTONDBLCLK, 0, 0); }};
    for (const auto &turn : turns) {
      const std::string state = stateOf(window);
      turn();
      EXPECT_TRUE(coversTheScreen(window)) << how;
      EXPECT_EQ(wrongPixels(window, window.viewer), 0U);
      turn();
      EXPECT_TRUE(stateOf(window) == state) << how;
    }
    window.press(VK_F11);
    RECT other{30, 40, 400, 500};
    SendMessageA(main, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&other));
    ShowWindow(main, SW_MINIMIZE);
    ShowWindow(main, SW_RESTORE);
    EXPECT_TRUE(coversTheScreen(window)) << how;
    window.press(VK_ESCAPE);
    EXPECT_EQ(placeOf(main), before) << how;
    window.press(VK_F11);
    SendMessageA(main, WM_DISPLAYCHANGE, 0, 0); // the old place may be off the screen
    window.press(VK_F11);
    const RECT work = workAreaOf(main), onScreen = keptOnWorkArea({before[0], before[1], before[2], before[3]}, work);
    const Place moved{onScreen.left, onScreen.top, onScreen.right, onScreen.bottom};
    EXPECT_EQ(placeOf(main), IsZoomed(main) ? before : moved);
  }
}

TEST(FullScreen, APictureOfAnotherSizeIsFollowedAfterwards) {
  ShellWindow window("SUNSET.EVA");
  window.press(VK_F11);
  window.drop(writeSample(window.folder, "COAST.SC5"));
  EXPECT_TRUE(coversTheScreen(window));
  window.press(VK_ESCAPE);
  EXPECT_EQ(differences(window), "");
}

TEST(FullScreen, AnUnmovedPointerIsHidden) {
  ShellWindow window("WHEEL.GL5");
  const bool &hidden = window.main.fullScreen.pointerHidden;
  window.press(VK_F11);
  int x = 300;
  for (int rest = 0; rest < 2; ++rest) {
    // Shown at the move; a single one may be lost between the display and the window.
    EXPECT_TRUE(waitUntil([&] { return SetCursorPos(++x, 300), window.run([] {}), !hidden; }));
    for (int i = 0; i < 2; ++i) SendMessageA(window.main.window, WM_TIMER, kPointerTimer, 0); // one may see the move
    EXPECT_TRUE(hidden);
  }
  window.press(VK_F11);
  EXPECT_FALSE(hidden);
  SetCursorPos(9999, 9999);
}

TEST(WindowMemory, TheNextWindowOpensWhereTheLastWasClosed) {
  const auto next = [](const std::function<void(ShellWindow & window, HWND main, Place place)> &look) {
    ShellWindow window("WHEEL.GL5", SW_SHOWNORMAL, true);
    look(window, window.main.window, placeOf(window.main.window));
  };
  ShellWindow("").press(VK_F11);
  writeRegistryValue("Place", "120,90");
  next([](auto &window, auto, auto place) {
    EXPECT_TRUE(place[0] == 120 && place[1] == 90);
    EXPECT_EQ(differences(window), "");
    window.press(VK_F11); // closed in full screen
  });
  const HWND other =
      CreateWindowA("KorilanMainWindow", "", WS_POPUP | WS_VISIBLE, 120, 90, 9, 9, nullptr, nullptr, nullptr, nullptr);
  const int step = GetSystemMetrics(SM_CYCAPTION);
  next([&](auto &, auto, auto place) { EXPECT_TRUE(place[0] == 120 + step && place[1] == 90 + step); });
  DestroyWindow(other);
  next([](auto &, auto main, auto place) {
    EXPECT_TRUE(place[0] == 120 && place[1] == 90); // not where it evaded to
    SendMessageA(main, WM_SIZING, WMSZ_RIGHT, reinterpret_cast<LPARAM>(&place));
    SetWindowPos(main, nullptr, 100, 80, 750, 700, SWP_NOZORDER);
    ShowWindow(main, SW_MAXIMIZE);
  });
  next([](auto &, auto main, auto) {
    EXPECT_TRUE(IsZoomed(main));
    ShowWindow(main, SW_RESTORE);
    EXPECT_EQ(placeOf(main), (Place{100, 80, 850, 780}));
  });
}

TEST(WindowMemory, AWrongPlaceIsOnTheScreenAllTheSame) {
  using Row = std::array<const char *, 2>;
  for (const auto &[place, size] : {Row{"30000,30000", "9000,9000"}, Row{"-30000,5", "0,500"}, Row{"99999,1", "-5,-5"},
                                    Row{"1,2,3", "x"}, Row{"", "500"}, Row{"7", ","}}) {
    writeRegistryValue("Place", place);
    writeRegistryValue("Size", size);
    ShellWindow window("", SW_SHOWNORMAL, true);
    const Place now = placeOf(window.main.window);
    const RECT work = workAreaOf(window.main.window);
    EXPECT_TRUE(now[0] >= work.left && now[1] >= work.top && now[2] <= work.right && now[3] <= work.bottom) << place;
    EXPECT_EQ(window.main.fittedSize.cx == 0, std::string_view(size) == "9000,9000");
  }
}

} // namespace
