// The picture area of Korilan.exe: its size, what stands under the mouse, and scrolling.
#include "core/colour_readout.h"
#include "shell/control_ids.h"
#include "shell/shown_sample.h"

#include <gtest/gtest.h>

#include <array>

namespace {

TEST(View, ZoomAndAspectChangeTheShownSize) {
  const TemporaryFolder folder("shell_zoom");
  const DrivenWindow driven("");
  for (const char *name : {"REEF.SC5", "CASTLE.SC7", "FOLDER.SGX", "CASTLE.G9B"}) {
    SampleFile picture(folder, sampleNamed(name));
    choose(driven, "Close");
    dropFile(driven, picture.path);
    expectTexts(driven, picture.model);
    for (const char *step : {"Zoom", "1:2 Aspect  Ratio", "Zoom", "1:2 Aspect  Ratio"}) {
      SCOPED_TRACE(std::string(name) + ": " + step);
      chooseInBoth(driven, picture.viewer, step);
      expectPicture(driven, picture.viewer);
      const bool zoomed = picture.model.menuZoom.checked;
      const bool high = picture.model.menuDoubleHeight.checked;
      EXPECT_TRUE(menusHold(driven, zoomed ? "View/Zoom Ctrl+Z checked\n" : "View/Zoom Ctrl+Z\n"));
      EXPECT_TRUE(menusHold(driven, high ? "Ratio Ctrl+A checked\n" : "Ratio Ctrl+A\n"));
    }
  }
}

// Puts the mouse onto that pixel of the picture area.
void pointAt(const DrivenWindow &driven, POINT place) {
  ClientToScreen(GetDlgItem(driven.window, kMainViewId), &place);
  SetCursorPos(place.x, place.y);
}

TEST(View, ReadOutFollowsTheMouse) {
  const TemporaryFolder folder("shell_mouse");
  SampleFile picture(folder, sampleNamed("FISH.GL5"));
  const DrivenWindow driven(picture.path);
  struct Row {
    POINT place;
    bool onPicture;
  };
  const std::array<Row, 6> rows{{{{0, 0}, true},
                                 {{201, 153}, true},
                                 {{202, 100}, false},
                                 {{57, 91}, true},
                                 {{100, 154}, false},
                                 {{58, 91}, true}}};
  const auto shows = [&](const std::string &text) {
    return waitUntil([&] { return textOf(driven, kReadoutId) == text; });
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(std::to_string(row.place.x) + ", " + std::to_string(row.place.y));
    pointAt(driven, row.place);
    moveMouse(picture.viewer, row.place.x, row.place.y);
    EXPECT_NE(picture.model.readout.text.empty(), row.onPicture);
    // A busy system may lose a movement: the mouse comes again, by way of the pixel beside.
    const auto followed = [&] {
      if (textOf(driven, kReadoutId) == picture.model.readout.text) return true;
      pointAt(driven, {row.place.x + 1, row.place.y});
      pointAt(driven, row.place);
      return false;
    };
    EXPECT_TRUE(waitUntil(followed)) << textOf(driven, kReadoutId);
    if (!row.onPicture) continue;
    const auto swatch = [&] {
      const ScreenPicture shown = screenPicture(GetDlgItem(driven.window, kReadoutSwatchId));
      return shown.pixels[static_cast<size_t>(shown.width) + 1];
    };
    EXPECT_TRUE(waitUntil([&] { return swatch() == picture.model.readout.colour; })) << swatch();
  }
  SetCursorPos(1, 1);
  EXPECT_TRUE(shows("")) << textOf(driven, kReadoutId);
}

TEST(View, APictureLargerThanTheScreenScrolls) {
  const TemporaryFolder folder("shell_scroll");
  SampleFile picture(folder, sampleNamed("PLASMA.HAM"));
  const DrivenWindow driven(picture.path);
  expectPicture(driven, picture.viewer);
  const HWND view = GetDlgItem(driven.window, kMainViewId);
  EXPECT_EQ(GetWindowLongA(view, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL), 0);
  chooseInBoth(driven, picture.viewer, "1:2 Aspect  Ratio"); // 960 lines and the labels
  EXPECT_TRUE(waitUntil([&] { return (GetWindowLongA(view, GWL_STYLE) & WS_VSCROLL) != 0; }));
  RECT place{};
  RECT work{};
  GetWindowRect(driven.window, &place);
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
  EXPECT_TRUE(place.left >= work.left && place.top >= work.top && place.right <= work.right &&
              place.bottom <= work.bottom)
      << place.left << " " << place.top << " " << place.right << " " << place.bottom;
  EXPECT_TRUE(waitUntil([&] { return shownPicture(driven).width == 512; })); // room for the bar beside it
  EXPECT_TRUE(waitUntil([&] { return showsPicture(driven, picture.viewer); }));
  typeKey(driven, VK_DOWN);
  EXPECT_TRUE(waitUntil([&] { return showsPicture(driven, picture.viewer, 32); }));
  pointAt(driven, {10, 20});
  moveMouse(picture.viewer, 10, 20 + 32);
  EXPECT_TRUE(waitUntil([&] { return textOf(driven, kReadoutId) == picture.model.readout.text; }));
  typeKey(driven, VK_UP);
  EXPECT_TRUE(waitUntil([&] { return showsPicture(driven, picture.viewer); }));
}

} // namespace
