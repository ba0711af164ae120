#include "core/display_geometry.h"

#include "core/file_kinds.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>

namespace {

TEST(DisplayGeometry, SizesShown) {
  using Size = std::pair<int32_t, int32_t>;
  constexpr uint8_t kNormal = 0, kZoomed = 1;
  struct Row {
    const char *name, *extension;
    Size picture;
    uint8_t zoomMode;
    bool aspect, autoRatioOff;
    Size target, mainView;
    bool aspectAfter;
  };
  for (const Row &row :
       {Row{"512x212", ".SC7", {512, 212}, kZoomed, false, false, {512, 424}, {516, 428}, true},
        Row{"automatic ratio off", ".SC7", {512, 212}, kZoomed, false, true, {512, 212}, {516, 216}, false},
        Row{"aspect by hand", ".SC7", {512, 212}, kNormal, true, true, {512, 424}, {516, 428}, true},
        Row{"one line less", ".G9B", {512, 211}, kNormal, false, false, {512, 211}, {516, 215}, false},
        Row{"one column less", ".G9B", {511, 212}, kNormal, false, false, {511, 212}, {515, 216}, false},
        Row{"zoom and aspect", ".SC5", {256, 212}, kZoomed, true, false, {512, 848}, {516, 852}, true},
        Row{"neither", ".SC5", {256, 212}, kNormal, false, false, {256, 212}, {260, 216}, false},
        Row{"largest zoomed", ".GL5", {256, 256}, kZoomed, false, false, {512, 512}, {516, 516}, false},
        Row{"too wide to zoom", ".GL5", {257, 100}, kZoomed, false, false, {257, 100}, {261, 196}, false},
        Row{"too high to zoom", ".GL5", {100, 257}, kZoomed, false, false, {100, 257}, {260, 261}, false},
        Row{"page", ".PCT", {512, 704}, kNormal, false, false, {233, 320}, {260, 324}, false},
        Row{"page with aspect", ".PCT", {512, 704}, kZoomed, true, false, {233, 640}, {260, 644}, true},
        Row{"wide page", ".PCT", {1024, 705}, kNormal, false, false, {465, 320}, {469, 324}, false},
        Row{"zoomed before reduced", ".PCT", {256, 256}, kZoomed, false, false, {233, 233}, {260, 237}, false}}) {
    SCOPED_TRACE(row.name);
    ViewerState viewer;
    viewer.pictureShown = kTrue;
    viewer.pictureKind = findFileKind(row.extension);
    std::tie(viewer.frameWidth, viewer.frameHeight) = row.picture;
    viewer.zoomMode = row.zoomMode;
    viewer.window.menuDoubleHeight.checked = row.aspect;
    viewer.window.readout.text = "old";
    viewer.preferences.Check5 = toFlag(row.autoRatioOff);
    ApplyDisplayGeometry(viewer);
    EXPECT_EQ(viewer.window.stretch,
              (Stretch{row.picture.first, row.picture.second, row.target.first, row.target.second}));
    EXPECT_EQ(Size(viewer.window.mainViewWidth, viewer.window.mainViewHeight), row.mainView);
    EXPECT_EQ(viewer.window.menuDoubleHeight.checked, row.aspectAfter);
    EXPECT_EQ(viewer.window.pictureSerial, 1u);
    EXPECT_EQ(viewer.window.readout.text, "");
  }
}

TEST(DisplayGeometry, PaletteCommands) {
  using Row = std::tuple<int16_t, int16_t, uint8_t, const char *>;
  for (const auto &[hasPalette, colourCount, storedCount, enabled] :
       {Row{kTrue, 16, 0, "LoadPal SavePal "}, Row{kTrue, 16, 16, "LoadPal SavePal RestPal "},
        Row{kTrue, 4, 16, "LoadPal SavePal "}, Row{kTrue, 17, 17, "SavePal RestPal "}, Row{kTrue, 255, 0, "SavePal "},
        Row{kFalse, 16, 16, ""}}) {
    TestViewer window;
    window.viewer.pictureShown = kTrue;
    window.viewer.picture.hasPalette = hasPalette;
    window.viewer.picture.colourCount = colourCount;
    window.viewer.storedPaletteCount = storedCount;
    ApplyDisplayGeometry(window.viewer);
    EXPECT_EQ(menuText(window.viewer.window), enabled) << hasPalette << " " << colourCount;
  }
}

} // namespace
