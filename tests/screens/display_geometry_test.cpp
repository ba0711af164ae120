#include "core/display_geometry.h"

#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

using Size = std::pair<int32_t, int32_t>;

constexpr uint8_t kNormal = 0, kZoomed = 1;

TEST(DisplayGeometry, SizesShown) {
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
        Row{"zoom", ".SC2", {256, 192}, kZoomed, false, false, {512, 384}, {516, 388}, false},
        Row{"zoom and aspect", ".SC5", {256, 212}, kZoomed, true, false, {512, 848}, {516, 852}, true},
        Row{"neither", ".SC5", {256, 212}, kNormal, false, false, {256, 212}, {260, 216}, false},
        Row{"largest zoomed", ".GL5", {256, 256}, kZoomed, false, false, {512, 512}, {516, 516}, false},
        Row{"too wide to zoom", ".GL5", {257, 100}, kZoomed, false, false, {257, 100}, {261, 196}, false},
        Row{"too high to zoom", ".GL5", {100, 257}, kZoomed, false, false, {100, 257}, {260, 261}, false},
        Row{"least area", ".GL5", {128, 64}, kNormal, false, false, {128, 64}, {260, 196}, false},
        Row{"page", ".PCT", {512, 704}, kNormal, false, false, {233, 320}, {260, 324}, false},
        Row{"page with aspect", ".PCT", {512, 704}, kZoomed, true, false, {233, 640}, {260, 644}, true},
        Row{"wide page", ".PCT", {1024, 705}, kNormal, false, false, {465, 320}, {469, 324}, false},
        Row{"zoomed before reduced", ".PCT", {256, 256}, kZoomed, false, false, {233, 233}, {260, 237}, false}}) {
    SCOPED_TRACE(row.name);
    ViewerState viewer;
    viewer.pictureShown = kTrue;
    viewer.fileExtension = row.extension;
    viewer.imageWidth = viewer.frameWidth = row.picture.first;
    viewer.imageHeight = viewer.frameHeight = row.picture.second;
    viewer.zoomMode = row.zoomMode;
    viewer.window.menuDoubleHeight.checked = row.aspect;
    viewer.preferences.Check5 = toFlag(row.autoRatioOff);
    const uint32_t serial = viewer.window.pictureSerial;
    ApplyDisplayGeometry(viewer);
    EXPECT_EQ(viewer.window.stretch,
              (Stretch{row.picture.first, row.picture.second, row.target.first, row.target.second}));
    EXPECT_EQ(Size(viewer.window.mainViewWidth, viewer.window.mainViewHeight), row.mainView);
    EXPECT_EQ(viewer.window.menuDoubleHeight.checked, row.aspectAfter);
    EXPECT_NE(viewer.window.pictureSerial, serial);
  }
}

TEST(DisplayGeometry, PaletteCommands) {
  using Row = std::tuple<Flag16, uint8_t, uint8_t, const char *>;
  for (const auto &[hasPalette, colourCount, storedCount, enabled] :
       {Row{kTrue, 16, 0, "LoadPal SavePal "}, Row{kTrue, 16, 16, "LoadPal SavePal RestPal "},
        Row{kTrue, 4, 16, "LoadPal SavePal "}, Row{kTrue, 17, 17, "SavePal RestPal "}, Row{kTrue, 255, 0, "SavePal "},
        Row{kTrue, 0, 0, "LoadPal SavePal RestPal "}, // Screen 12 after a picture with a palette
        Row{kFalse, 16, 16, ""}, Row{kFalse, 0, 0, ""}}) {
    TestViewer window;
    window.viewer.pictureShown = kTrue;
    window.viewer.hasPalette = hasPalette;
    window.viewer.colourCount = colourCount;
    window.viewer.storedPaletteCount = storedCount;
    ApplyDisplayGeometry(window.viewer);
    EXPECT_EQ(menuText(window.viewer.window), enabled) << hasPalette << " " << int{colourCount};
  }
}

TEST(DisplayGeometry, LoadedPicturesAreShownTwiceAsLarge) {
  TestViewer window;
  window.open("a.SC5", BloadBuilder{}.build());
  EXPECT_EQ(window.viewer.window.stretch, (Stretch{256, 212, 512, 424}));
  window.open("a.SC7", BloadBuilder{}.build());
  EXPECT_EQ(window.viewer.window.stretch, (Stretch{512, 212, 512, 424}));
  window.open("a.SC5", BloadBuilder{}.build()); // the aspect of the picture before is gone
  EXPECT_EQ(window.viewer.window.stretch, (Stretch{256, 212, 512, 424}));
}

TEST(DisplayGeometry, NothingIsStretchedWithoutAPicture) {
  TestViewer window;
  EXPECT_TRUE(stretchedPicture(window.viewer).empty());
  window.open("a.SC5", BloadBuilder{}.build());
  EXPECT_EQ(stretchedPicture(window.viewer).size(), 512u * 424);
  menuClose_Click(window.viewer);
  window.viewer.window.stretch = {256, 212, 512, 424};
  EXPECT_TRUE(stretchedPicture(window.viewer).empty());
}

} // namespace
