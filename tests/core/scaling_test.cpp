// The scale of the view: what is chosen, what fits, what stays under the mouse.
#include "core/scaling.h"
#include "support/test_viewer.h"

namespace {

constexpr int kPlus = 187, kMinus = 189, kFit = 12;

// Shows a picture of 512x424.
struct ScaledViewer : TestViewer {
  int32_t width, height; // room

  explicit ScaledViewer(int32_t roomWidth = 999, int32_t roomHeight = 999) : width(roomWidth), height(roomHeight) {
    open("C:\\a.SC5", {0xFE, 0x00, 0x00, 0xFF, 0x69, 0x00, 0x00, 0x12});
    scale();
  }
  int32_t scale() { return applyScale(viewer, width, height), viewer.window.scale; }
  int32_t press(int key, bool shift = false) { return pressKey(viewer, {key, true, false, shift}), scale(); }
  int32_t choose(size_t choice) {
    const auto row = std::ranges::find(kMenuRows, &WindowModel::menuScale, &MenuRow::item) - kMenuRows.begin();
    return runMenuChoice(viewer, static_cast<size_t>(row), choice), scale();
  }
  std::string enabled() {
    const WindowModel &window = (scale(), viewer.window);
    return std::string(window.menuScale.enabled ? "s" : "") + (window.menuLarger.enabled ? "+" : "") +
           (window.menuSmaller.enabled ? "-" : "") + (window.menuFitWindow.enabled ? "w" : "");
  }
};

TEST(Scaling, KeysStepThroughAllScales) {
  for (const auto &[larger, smaller] : {std::pair(kPlus, kMinus), std::pair(107, 109)}) {
    ScaledViewer window;
    std::string scales;
    for (int key = 0; key < 11; ++key) scales += std::to_string(window.press(larger, larger == kPlus)) + " ";
    for (int key = 0; key < 11; ++key) scales += std::to_string(window.press(smaller)) + " ";
    EXPECT_EQ(scales, "2 3 4 5 6 7 8 10 12 16 16 12 10 8 7 6 5 4 3 2 1 1 ");
  }
}

TEST(Scaling, FitTakesTheLargestWholeFactor) {
  using Row = std::array<int32_t, 5>; // room; fitted, one step larger, one smaller
  for (const auto &[width, height, fitted, larger, smaller] :
       {Row{511, 424, 1, 2, 1}, Row{1024, 847, 1, 2, 1}, Row{1024, 848, 2, 3, 1}, Row{4608, 3816, 9, 10, 8},
        Row{9999, 9999, 16, 16, 12}, Row{0, 0, 3, 4, 2}}) {
    for (const int key : {kPlus, kMinus}) {
      ScaledViewer window(width, height);
      setDotsPerInch(window.viewer, 3 * 96 + 95);
      EXPECT_EQ(window.choose(kFit), fitted) << width;
      EXPECT_EQ(window.press(key), key == kPlus ? larger : smaller) << width;
    }
  }
}

TEST(Scaling, IsKeptForAllPicturesAndStarts) {
  const auto started = [](const char *scale, const char *fit) {
    ScaledViewer window(512 * 9, 9999);
    window.platform.values = {{"Scale", scale}, {"Fit", fit}};
    startViewer(window.viewer, "C:\\a.SC5");
    setDotsPerInch(window.viewer, 192);
    return window.scale();
  };
  for (const auto &[stored, scale] : {std::pair("10", 10), {"9", 2}, {"0", 2}, {"-1", 2}, {"2x", 2}}) {
    EXPECT_EQ(started(stored, "0"), scale) << stored;
    EXPECT_EQ(started(stored, "yes"), scale) << stored;
    EXPECT_EQ(started(stored, "1"), 9) << stored;
  }
  ScaledViewer window;
  EXPECT_EQ(window.choose(8), 10);
  EXPECT_EQ(window.viewer.window.scaleChoices.captions.at(8), "10x");
  EXPECT_EQ(window.platform.values["Scale"] + window.platform.values["Fit"], "100");
  menuClose_Click(window.viewer);
  EXPECT_EQ(window.scale(), 1); // the empty view
  EXPECT_EQ(window.viewer.window.scaleChoices.checked, 8);
  EXPECT_EQ(window.enabled(), "s");
  stepScale(window.viewer, -1); // by the wheel, which knows no menu
  EXPECT_EQ(window.platform.values["Scale"], "10");
  window.open("C:\\b.SC8", {0xFE, 0x00, 0x00, 0xFF, 0xD3, 0x00, 0x00});
  EXPECT_EQ(window.scale(), 10);
  EXPECT_EQ(window.press('0'), 1);
  EXPECT_EQ(window.enabled(), "s+w");
  stepScale(window.viewer, -1);
  EXPECT_EQ(window.platform.values["Scale"], "0");
}

TEST(Scaling, FullScreenFitsAndKeepsTheChoice) {
  ScaledViewer window(512 * 5, 424 * 7);
  window.choose(2);
  EXPECT_EQ(window.enabled(), "s+-w");
  window.viewer.window.fullScreen = true;
  EXPECT_EQ(window.enabled(), "");
  stepScale(window.viewer, -1);
  EXPECT_EQ(window.press(kPlus), 5);
  window.viewer.window.fullScreen = false;
  EXPECT_EQ(window.scale(), 3);
}

TEST(Scaling, ThePixelUnderTheMouseStays) {
  for (int32_t row = 0; row < 3 * 16 * 16; ++row) {
    const int32_t place = std::array{0, 17, 127'999'999}.at(static_cast<size_t>(row / 256));
    const int32_t first = row / 16 % 16 + 1, scale = row % 16 + 1;
    EXPECT_EQ(placeOf(anchorOf(place, first), scale) / scale, place / first) << first << " " << scale;
  }
}

TEST(Scaling, TheGridNeedsFourScreenPixelsEachWay) {
  using Row = std::tuple<Stretch, int32_t, int32_t, int32_t>; // scale; width and height of a pixel
  for (const auto &[stretch, scale, width, height] :
       {Row{{256, 212, 512, 424}, 2, 4, 4}, Row{{512, 212, 512, 424}, 3, 0, 0}, Row{{512, 212, 512, 424}, 4, 4, 8},
        Row{{512, 704, 233, 320}, 16, 0, 0}, Row{{}, 16, 0, 0}, Row{{5, 0, 5, 0}, 16, 0, 0},
        Row{{256, 212, 512, 300}, 16, 0, 0}, Row{{256, 424, 512, 424}, 2, 0, 0}}) {
    WindowModel window;
    std::tie(window.stretch, window.scale, window.menuGrid.checked) = std::tuple(stretch, scale, true);
    EXPECT_TRUE(gridStep(window).width == width && gridStep(window).height == height) << scale;
    window.menuGrid.checked = false;
    EXPECT_EQ(gridStep(window).width, 0);
  }
}

} // namespace
