#include "core/palette_commands.h"

#include "support/bytes.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

namespace {

using Colours = std::array<uint32_t, 4>; // entries 0, 1, 4 and 15

constexpr uint32_t kOld = 0x123456, kWhite = 0xFFFFFF;
constexpr Colours kStandard{0x000000, 0x080808, 0x2424FF, 0xFFFFFF}, kKept{kOld, kOld, kOld, kOld};

const std::vector<std::string> kDrawn{"runPendingEvents", "presentPicture 256x212"};

// A picture of colour 1, all of whose palette was changed since it was drawn.
struct PaletteViewer : TestViewer {
  PaletteViewer() {
    open("d\\a.SC5", BloadBuilder{.body = {0x11}}.build());
    viewer.palette.fill(kOld);
    platform.log.clear();
  }

  Colours colours() const { return {viewer.palette[0], viewer.palette[1], viewer.palette[4], viewer.palette[15]}; }
};

TEST(PaletteCommands, Load) {
  Bytes white;
  for (int i = 0; i < 16; ++i) white.insert(white.end(), {0x77, 0x07});
  constexpr Colours kAllWhite{kWhite, kWhite, kWhite, kWhite};
  struct Row {
    const char *name;
    Bytes file;
    uint8_t colourCount;
    Colours colours;
    bool drawn;
  };
  for (const Row &row :
       {Row{"cancelled", {}, 16, kKept, false}, Row{"no such file", {}, 16, kKept, false},
        Row{"31 bytes", Bytes(white.begin(), white.end() - 1), 16, kKept, false},
        Row{"32 bytes", white, 16, kAllWhite, true},
        Row{"every channel", withBytesAt(white, 8, {0x21, 0x03}), 16, {kWhite, kWhite, 0x496D24, kWhite}, true},
        Row{"green 8 in the last entry", withBytesAt(white, 31, {0x08, 0}), 16, kStandard, false},
        Row{"all black", Bytes(96), 16, kStandard, true},
        Row{"4 entries take 8 bytes", withBytesAt(white, 8, {0xFF}), 4, {kWhite, kWhite, kOld, kOld}, true}}) {
    SCOPED_TRACE(row.name);
    PaletteViewer window;
    window.viewer.picture.colourCount = row.colourCount;
    if (!row.file.empty()) memoryDisk()["p.PL5"] = row.file;
    if (row.name != std::string("cancelled")) window.platform.chosenFiles = {"p.PL5"};
    menuLoadPal_Click(window.viewer);
    EXPECT_EQ(window.colours(), row.colours);
    std::vector<std::string> log{"askOpenFileName Palette Files (*.PL?;*.PAL) in d\\"};
    if (row.drawn) log.insert(log.end(), kDrawn.begin(), kDrawn.end());
    EXPECT_EQ(window.platform.log, log);
    EXPECT_EQ(window.viewer.frameBits[0], row.drawn ? row.colours[1] : kStandard[1]);
    EXPECT_EQ(window.viewer.window.Label4, "");
    EXPECT_EQ(window.viewer.activity, Activity::kIdle);
  }
}

TEST(PaletteCommands, WhichPicturesAllowThem) {
  using Row = std::tuple<int16_t, uint8_t, bool, bool>; // shown or loaded, stored
  for (const auto &[hasPalette, count, shown, stored] : {Row{kTrue, 4, true, true}, Row{kTrue, 16, true, true},
                                                         Row{kTrue, 17, false, true}, Row{kFalse, 16, false, false}}) {
    SCOPED_TRACE(testing::Message() << hasPalette << " " << int{count});
    PaletteViewer window;
    ViewerState &viewer = window.viewer;
    const auto &swatches = viewer.window.Label5;
    viewer.picture.hasPalette = hasPalette;
    viewer.picture.colourCount = count;
    viewer.palette[1] = 0xFF8001;
    menuLoadPal_Click(viewer);
    EXPECT_EQ(window.platform.log.size(), shown ? 1u : 0u);
    for (int clicks = 0; clicks < 3; ++clicks) { // on, off, on
      menuViewPal_Click(viewer);
      EXPECT_EQ(viewer.window.menuViewPal.checked, shown && clicks != 1);
      for (size_t i = 0; i < 16; ++i) EXPECT_EQ(swatches[i].visible, shown && clicks != 1 && i < count);
    }
    EXPECT_EQ(swatches[1].background, shown ? 0xFF8001 : 0);
    EXPECT_EQ(swatches[1].text, shown ? 0x007FFE : 0);
    menuSavePal_Click(viewer);
    EXPECT_EQ(viewer.storedPaletteCount, stored ? count : 0);
    EXPECT_EQ(viewer.window.menuRestPal.enabled, stored);
    const auto before = viewer.palette;
    viewer.palette.fill(0);
    window.platform.log.clear();
    menuRestPal_Click(viewer);
    EXPECT_EQ(window.platform.log, stored ? kDrawn : std::vector<std::string>{});
    EXPECT_EQ(viewer.window.menuViewPal.checked, shown && !stored); // drawing anew hides the swatches
    EXPECT_EQ(viewer.window.menuViewPal.enabled, count <= 16);
    for (size_t i = 0; i < 256; ++i) EXPECT_EQ(viewer.palette[i], stored && i < count ? before[i] : 0);
  }
}

TEST(PaletteCommands, StoredColoursOutliveThePicture) {
  PaletteViewer window;
  menuSavePal_Click(window.viewer);
  window.open("four.SC6", BloadBuilder{}.build());
  EXPECT_FALSE(window.viewer.window.menuRestPal.enabled);
  menuRestPal_Click(window.viewer); // another count
  EXPECT_EQ(window.viewer.palette[1], kStandard[1]);
  openPath(window.viewer, "d\\a.SC5");
  EXPECT_TRUE(window.viewer.window.menuRestPal.enabled);
  window.platform.events = {
      {[](ViewerState &viewer, const std::string &) { EXPECT_EQ(viewer.window.Label4, "Rendering..."); }, ""},
      {[](ViewerState &viewer, const std::string &path) { openPath(viewer, path); }, "four.SC6"}};
  menuRestPal_Click(window.viewer);
  menuRestPal_Click(window.viewer);
  EXPECT_TRUE(window.platform.events.empty());
  EXPECT_EQ(window.viewer.frameBits[0], kOld);
  EXPECT_EQ(window.viewer.fileName + window.viewer.window.Label4, "a.SC5"); // to open was ignored while it was drawn
}

} // namespace
