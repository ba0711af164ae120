// The scale of the view: what is chosen, what fits, what stays under the mouse.
#include "core/scaling.h"
#include "core/colour_readout.h"
#include "support/test_viewer.h"

#include <numeric>

namespace {

constexpr KeyPress ctrlAnd(int code, bool shift = false) { return {.code = code, .ctrl = true, .shift = shift}; }

// A file without a palette, shown as 512x424.
std::vector<uint8_t> screen5() { return {0xFE, 0x00, 0x00, 0xFF, 0x69, 0x00, 0x00, 0x12}; }

struct ScaledViewer : TestViewer {
  int32_t roomWidth = 0, roomHeight = 0;

  ScaledViewer(int32_t width, int32_t height) : roomWidth(width), roomHeight(height) {
    open("C:\\a.SC5", screen5());
    apply();
  }
  int32_t apply() { return applyScale(viewer, roomWidth, roomHeight), viewer.window.scale; }
  int32_t press(KeyPress key) { return pressKey(viewer, key), apply(); }
  int32_t choose(size_t choice) {
    const auto scale = std::ranges::find(kMenuRows, &WindowModel::menuScale, &MenuRow::item) - kMenuRows.begin();
    return runMenuChoice(viewer, static_cast<size_t>(scale), choice), apply();
  }
};

TEST(Scaling, KeysStepThroughAllScales) {
  for (const auto &[larger, smaller] : {std::pair(187, 189), std::pair(107, 109)}) {
    ScaledViewer window(100, 100);
    std::vector<int32_t> up{window.apply()}, down;
    for (int key = 0; key < 11; ++key) up.push_back(window.press(ctrlAnd(larger)));
    for (int key = 0; key < 11; ++key) down.push_back(window.press(ctrlAnd(smaller)));
    EXPECT_EQ(up, (std::vector<int32_t>{1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 16, 16}));
    EXPECT_EQ(down, (std::vector<int32_t>{12, 10, 8, 7, 6, 5, 4, 3, 2, 1, 1}));
  }
}

TEST(Scaling, FitTakesTheLargestWholeFactor) {
  using Row = std::array<int32_t, 5>; // room; fitted, one step larger, one smaller
  for (const auto &[width, height, fitted, larger, smaller] :
       {Row{511, 424, 1, 2, 1}, Row{1024, 847, 1, 2, 1}, Row{1024, 848, 2, 3, 1}, Row{4607, 9999, 8, 10, 7},
        Row{4608, 3816, 9, 10, 8}, Row{9999, 9999, 16, 16, 12}, Row{0, 0, 3, 4, 2}, Row{1, 1, 1, 2, 1}}) {
    for (const bool up : {true, false}) {
      ScaledViewer window(width, height);
      setDotsPerInch(window.viewer, 3 * 96 + 95);
      EXPECT_EQ(window.choose(12), fitted) << width;
      EXPECT_EQ(window.viewer.window.scaleChoices.checked, 12);
      EXPECT_EQ(window.press(ctrlAnd(up ? 187 : 189)), up ? larger : smaller) << width;
    }
  }
}

TEST(Scaling, IsKeptForAllPicturesAndStarts) {
  ScaledViewer window(1, 1);
  setDotsPerInch(window.viewer, 2 * 96 - 1);
  EXPECT_EQ(window.apply(), 1);
  setDotsPerInch(window.viewer, 2 * 96);
  EXPECT_EQ(window.apply(), 2);
  EXPECT_EQ(window.press(ctrlAnd(187, true)), 3); // Plus with Shift
  EXPECT_EQ(window.choose(8), 10);
  EXPECT_EQ(window.viewer.window.scaleChoices.checked, 8);
  EXPECT_EQ(window.viewer.window.scaleChoices.captions.at(8), "10x");
  menuClose_Click(window.viewer);
  EXPECT_EQ(window.apply(), 2); // the empty view
  window.open("C:\\b.SC8", screen5());
  EXPECT_EQ(window.apply(), 10);

  const auto startedScale = [&](const char *scale, const char *fit) {
    window.platform.values = {{"Scale", scale}, {"Fit", fit}};
    ViewerState next;
    next.platform = window.viewer.platform;
    startViewer(next, "C:\\a.SC5");
    setDotsPerInch(next, 192);
    return applyScale(next, 512 * 9, 9999), next.window.scale;
  };
  EXPECT_EQ(window.platform.values["Scale"] + window.platform.values["Fit"], "100");
  for (const auto &[stored, scale] :
       {std::pair("10", 10), {"16", 16}, {"9", 2}, {"0", 2}, {"-1", 2}, {"", 2}, {"2x", 2}}) {
    EXPECT_EQ(startedScale(stored, "0"), scale) << stored;
    EXPECT_EQ(startedScale(stored, "yes"), scale) << stored;
    EXPECT_EQ(startedScale(stored, "1"), 9) << stored;
  }
  EXPECT_EQ(window.press(ctrlAnd('0')), 2);
  EXPECT_EQ(window.press(ctrlAnd(96)), 2);
  EXPECT_EQ(window.platform.values["Scale"], "0");
}

TEST(Scaling, FullScreenFitsAndKeepsTheChoice) {
  ScaledViewer window(512 * 5, 424 * 7);
  window.choose(2);
  window.viewer.window.fullScreen = true;
  EXPECT_EQ(window.apply(), 5);
  EXPECT_EQ(window.press(ctrlAnd(187)), 5);
  stepScale(window.viewer, -1);
  window.viewer.window.fullScreen = false;
  EXPECT_EQ(window.apply(), 3);
}

TEST(Scaling, CommandsAreEnabledWhereTheyCanDoSomething) {
  TestViewer empty;
  const auto enabled = [](ViewerState &viewer) {
    applyScale(viewer, 999, 999);
    const WindowModel &window = viewer.window;
    std::string text;
    if (window.menuScale.enabled) text += "s";
    if (window.menuLarger.enabled) text += "+";
    if (window.menuSmaller.enabled) text += "-";
    if (window.menuFitWindow.enabled) text += "w";
    return text;
  };
  EXPECT_EQ(enabled(empty.viewer), "s");
  ScaledViewer window(1, 1);
  EXPECT_EQ(enabled(window.viewer), "s+w");
  window.choose(1);
  EXPECT_EQ(enabled(window.viewer), "s+-w");
  window.choose(10);
  EXPECT_EQ(enabled(window.viewer), "s-w");
  window.viewer.window.fullScreen = true;
  EXPECT_EQ(enabled(window.viewer), "");
}

TEST(Scaling, ThePixelUnderTheMouseStays) {
  for (int32_t first = 1; first <= 16; ++first) {
    for (const int32_t place : {0, 1, 17, 5000, 2'047'999'999}) {
      const int64_t anchor = anchorOf(place, first);
      EXPECT_EQ(placeOf(anchor, first), place);
      for (const int32_t step : kScaleSteps) {
        if (place > 2'000'000 && step > first) continue; // beyond any picture
        EXPECT_EQ(placeOf(anchor, step) / step, place / first) << first << " " << step;
      }
    }
  }
}

TEST(Scaling, TheReadOutNamesThePixelAtEveryScale) {
  ScaledViewer window(1, 1);
  for (size_t choice = 0; choice < kScaleSteps.size(); ++choice) {
    const int32_t pixel = 2 * window.choose(choice); // the picture is shown at twice its size
    const std::vector<std::tuple<int32_t, int32_t, std::string>> rows{
        {0, 0, "0, 0 "},      {pixel - 1, pixel, "0, 1 "}, {256 * pixel - 1, 212 * pixel - 1, "255, 211 "},
        {256 * pixel, 0, ""}, {0, 212 * pixel, ""},        {-1, 0, ""},
        {0, -1, ""}};
    for (const auto &[x, y, text] : rows) {
      moveMouse(window.viewer, x, y);
      const std::string &read = window.viewer.window.readout.text;
      EXPECT_EQ(read.substr(0, text.empty() ? 99 : text.size()), text) << pixel << " " << x << " " << y;
    }
  }
}

TEST(Scaling, TheGridNeedsFourScreenPixelsEachWay) {
  using Row = std::tuple<Stretch, int32_t, int32_t, int32_t>; // scale; width and height of a pixel
  for (const auto &[stretch, scale, width, height] :
       {Row{{256, 212, 512, 424}, 1, 0, 0}, Row{{256, 212, 512, 424}, 2, 4, 4}, Row{{512, 212, 512, 424}, 3, 0, 0},
        Row{{512, 212, 512, 424}, 4, 4, 8}, Row{{512, 704, 233, 320}, 16, 0, 0}, Row{{}, 16, 0, 0}}) {
    WindowModel window;
    window.stretch = stretch;
    window.scale = scale;
    EXPECT_EQ(gridStep(window).width, 0);
    window.menuGrid.checked = true;
    EXPECT_EQ(gridStep(window).width, width) << scale;
    EXPECT_EQ(gridStep(window).height, height) << scale;
  }
}

} // namespace
