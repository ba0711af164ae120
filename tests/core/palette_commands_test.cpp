#include "core/palette_commands.h"

#include "core/display_geometry.h"
#include "support/bytes.h"
#include "support/test_viewer.h"

namespace {

constexpr uint32_t kOld = 0x123456;

// A picture of colour 1, all of whose palette was changed since it was drawn.
struct PaletteViewer : TestViewer {
  explicit PaletteViewer(int16_t hasPalette, int16_t colourCount) {
    open("d\\a.SC5", BloadBuilder{.body = {0x11}}.build());
    viewer.palette.fill(kOld);
    viewer.picture.hasPalette = hasPalette;
    viewer.picture.colourCount = colourCount;
    ApplyDisplayGeometry(viewer);
    platform.log.clear();
  }
};

TEST(PaletteCommands, Load) {
  Bytes file;
  for (int i = 0; i < 16; ++i) file.insert(file.end(), {0x21, 0x03});  // (73, 109, 36)
  using Row = std::tuple<std::string, Bytes, uint8_t, uint32_t, bool>; // colours, last one, whether it is drawn
  for (const auto &[name, bytes, count, last, drawn] :
       {Row{"cancelled", {}, 16, kOld, false}, Row{"no such file", {}, 16, kOld, false},
        Row{"31 bytes", Bytes(file.begin(), file.end() - 1), 16, kOld, false},
        Row{"32 bytes", file, 16, 0x496D24, true},
        Row{"green 8 in the last entry", withBytesAt(file, 31, {0x08, 0}), 16, 0xFFFFFF, false},
        Row{"4 entries take 8 bytes", withBytesAt(file, 8, {0xFF}), 4, kOld, true}}) {
    SCOPED_TRACE(name);
    PaletteViewer window(kTrue, count);
    if (!bytes.empty()) memoryDisk()["p.PL5"] = bytes;
    if (name != "cancelled") window.platform.chosenFiles = {"p.PL5"};
    window.pressCtrl('L');
    EXPECT_EQ(window.viewer.palette[15], last);
    EXPECT_EQ(window.platform.log[0], "askOpenFileName Palette Files (*.PL?;*.PAL) in d\\");
    EXPECT_EQ(window.platform.log.size(), drawn ? 3u : 1u); // events, picture
    EXPECT_EQ(window.viewer.frameBits[0], drawn ? 0x496D24u : 0x080808u);
  }
}

TEST(PaletteCommands, WhichPicturesAllowThem) {
  using Row = std::tuple<int16_t, uint8_t, bool, bool>; // shown or loaded, stored
  for (const auto &[hasPalette, count, shown, stored] : {Row{kTrue, 4, true, true}, Row{kTrue, 16, true, true},
                                                         Row{kTrue, 17, false, true}, Row{kFalse, 16, false, false}}) {
    SCOPED_TRACE(testing::Message() << hasPalette << " " << int{count});
    PaletteViewer window(hasPalette, count);
    ViewerState &viewer = window.viewer;
    const auto &swatches = viewer.window.Label5;
    const std::string before = std::string("OWSCEQZAINP") + (shown ? "L" : "") + (stored ? "T" : "");
    EXPECT_EQ(menuText(viewer.window), before);
    viewer.palette[1] = 0xFF8001;
    menuLoadPal_Click(viewer);
    EXPECT_EQ(window.platform.log.size(), shown ? 1u : 0u);
    for (const bool on : {true, false, true}) {
      window.pressCtrl('P');
      EXPECT_EQ(viewer.window.menuViewPal.checked, shown && on);
      for (size_t i = 0; i < 16; ++i) EXPECT_EQ(swatches[i].visible, shown && on && i < count);
    }
    EXPECT_EQ(swatches[1].background, shown ? 0xFF8001 : 0);
    EXPECT_EQ(swatches[1].text, shown ? 0x007FFE : 0);
    menuSavePal_Click(viewer);
    EXPECT_EQ(menuText(viewer.window), before + (stored ? "R" : ""));
    const auto palette = viewer.palette;
    viewer.palette.fill(0);
    window.platform.log.clear();
    menuRestPal_Click(viewer);
    EXPECT_EQ(window.platform.log.size(), stored ? 2u : 0u);        // events, picture
    EXPECT_EQ(viewer.window.menuViewPal.checked, shown && !stored); // drawing anew hides the swatches
    for (size_t i = 0; i < 256; ++i) EXPECT_EQ(viewer.palette[i], stored && i < count ? palette[i] : 0);
  }
}

} // namespace
