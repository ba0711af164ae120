#include "core/palette_commands.h"

#include "support/bload_builder.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>
#include <optional>
#include <tuple>

namespace {

constexpr uint32_t kOld = 0x123456, kWhite = 0xFFFFFF;

// Standard colours 0, 1, 4 and 15.
constexpr std::array<uint32_t, 4> kStandard{0x000000, 0x080808, 0x2424FF, 0xFFFFFF};

const std::vector<std::string> kDrawn{"runPendingEvents", "presentPicture 256x212"};

// A picture of colour 1, all of whose palette was changed since it was drawn.
struct PaletteViewer : TestViewer {
  explicit PaletteViewer(const char *path = "d\\a.SC5") {
    memoryDisk()["four.SC6"] = BloadBuilder{}.build();
    open(path, BloadBuilder{.body = {0x11}}.build());
    viewer.palette.fill(kOld);
    platform.log.clear();
  }

  std::array<uint32_t, 4> colours() const {
    return {viewer.palette[0], viewer.palette[1], viewer.palette[4], viewer.palette[15]};
  }
};

TEST(PaletteCommands, Load) {
  Bytes white;
  for (int i = 0; i < 16; ++i) white.insert(white.end(), {0x77, 0x07});
  constexpr std::array<uint32_t, 4> kKept{kOld, kOld, kOld, kOld}, kAllWhite{kWhite, kWhite, kWhite, kWhite};
  struct Row {
    const char *name;
    std::optional<Bytes> file;
    uint8_t colourCount;
    std::array<uint32_t, 4> colours; // entries 0, 1, 4 and 15
    bool drawn;
  };
  for (const Row &row :
       {Row{"cancelled", std::nullopt, 16, kKept, false}, Row{"no such file", std::nullopt, 16, kKept, false},
        Row{"31 bytes", Bytes(white.begin(), white.end() - 1), 16, kKept, false},
        Row{"32 bytes", white, 16, kAllWhite, true},
        Row{"several palettes", withBytesAt(white, 32, Bytes(64, 0xFF)), 16, kAllWhite, true},
        Row{"every channel", withBytesAt(white, 8, {0x21, 0x03}), 16, {kWhite, kWhite, 0x496D24, kWhite}, true},
        Row{"green 8 in the last entry", withBytesAt(white, 31, {0x08}), 16, kStandard, false},
        Row{"all black", Bytes(32), 16, kStandard, true},
        Row{"black but for the last", withBytesAt(Bytes(32), 30, {0x01}), 16, {0, 0, 0, 36}, true},
        Row{"4 entries take 8 bytes", withBytesAt(white, 8, {0xFF}), 4, {kWhite, kWhite, kOld, kOld}, true},
        Row{"4 bad entries", withBytesAt(white, 7, {0xFF}), 4, kStandard, false},
        Row{"4 black entries", withBytesAt(white, 0, Bytes(8)), 4, kStandard, true}}) {
    SCOPED_TRACE(row.name);
    PaletteViewer window;
    window.viewer.colourCount = row.colourCount;
    if (row.file) memoryDisk()["p.PL5"] = *row.file;
    if (row.name != std::string("cancelled")) window.platform.chosenFiles = {"p.PL5"};
    menuLoadPal_Click(window.viewer);
    EXPECT_EQ(window.colours(), row.colours);
    std::vector<std::string> log{"askOpenFileName Palette Files (*.PL?;*.PAL) in d\\"};
    if (row.drawn) log.insert(log.end(), kDrawn.begin(), kDrawn.end());
    EXPECT_EQ(window.platform.log, log);
    EXPECT_EQ(window.viewer.frameBits[0], row.drawn ? row.colours[1] : kStandard[1]);
    EXPECT_EQ(window.viewer.window.Label4, "");
    EXPECT_EQ(window.viewer.filePath, "d\\a.SC5");
  }
}

TEST(PaletteCommands, WhichPicturesAllowThem) {
  using Row = std::tuple<const char *, Flag16, uint8_t, bool, bool>; // shown or loaded, stored
  for (const auto &[name, hasPalette, colourCount, shown, stored] :
       {Row{"16 colours", kTrue, 16, true, true}, Row{"17 colours", kTrue, 17, false, true},
        Row{"no palette", kFalse, 16, false, false}}) {
    SCOPED_TRACE(name);
    PaletteViewer window;
    window.viewer.hasPalette = hasPalette;
    window.viewer.colourCount = colourCount;
    menuLoadPal_Click(window.viewer);
    EXPECT_EQ(window.platform.log.size(), shown ? 1u : 0u);
    menuViewPal_Click(window.viewer);
    EXPECT_EQ(window.viewer.window.menuViewPal.checked, shown);
    EXPECT_EQ(window.viewer.window.Label5[0].visible, shown);
    menuSavePal_Click(window.viewer);
    EXPECT_EQ(window.viewer.storedPaletteCount, stored ? colourCount : 0);
    EXPECT_EQ(window.viewer.window.menuRestPal.enabled, stored);
    window.viewer.palette.fill(0);
    window.platform.log.clear();
    menuRestPal_Click(window.viewer);
    EXPECT_EQ(window.platform.log, stored ? kDrawn : std::vector<std::string>{});
    EXPECT_FALSE(window.viewer.window.menuViewPal.checked && stored); // drawing anew hides the swatches
    EXPECT_FALSE(window.viewer.window.Label5[0].visible && stored);
    for (size_t i = 0; i < 256; ++i) EXPECT_EQ(window.viewer.palette[i], stored && i < colourCount ? kOld : 0);
  }
}

TEST(PaletteCommands, StoredColoursOutliveThePicture) {
  PaletteViewer window;
  menuSavePal_Click(window.viewer);
  openPath(window.viewer, "four.SC6");
  EXPECT_FALSE(window.viewer.window.menuRestPal.enabled);
  window.platform.log.clear();
  menuRestPal_Click(window.viewer); // another count
  EXPECT_EQ(window.platform.log, std::vector<std::string>{});
  EXPECT_EQ(window.viewer.palette[1], kStandard[1]);

  openPath(window.viewer, "d\\a.SC5");
  EXPECT_TRUE(window.viewer.window.menuRestPal.enabled);
  EXPECT_EQ(window.viewer.frameBits[0], kStandard[1]);
  window.platform.events.push_back(
      {[](ViewerState &viewer, const std::string &) { EXPECT_EQ(viewer.window.Label4, "Rendering..."); }, ""});
  menuRestPal_Click(window.viewer);
  EXPECT_TRUE(window.platform.events.empty());
  EXPECT_EQ(window.viewer.frameBits[0], kOld);
  EXPECT_EQ(window.viewer.window.Label4, "");
}

TEST(PaletteCommands, RestoreAfterAFileOfAnUnknownKind) {
  PaletteViewer window;
  menuSavePal_Click(window.viewer);
  openPath(window.viewer, "d\\a.TXT");
  EXPECT_EQ(window.viewer.fileExtension, ".TXT");
  menuRestPal_Click(window.viewer);
  EXPECT_EQ(window.platform.log, kDrawn);
  EXPECT_EQ(window.viewer.frameBits[0], kOld);
}

TEST(PaletteCommands, Swatches) {
  for (const uint8_t count : Bytes{4, 16}) {
    SCOPED_TRACE(int{count});
    PaletteViewer window;
    const auto &swatches = window.viewer.window.Label5;
    window.viewer.colourCount = count;
    window.viewer.palette[1] = 0xFF8001;
    menuViewPal_Click(window.viewer);
    for (size_t i = 0; i < 16; ++i) EXPECT_EQ(swatches[i].visible, i < count) << i;
    EXPECT_EQ(swatches[1].background, 0xFF8001u);
    EXPECT_EQ(swatches[1].text, 0x007FFEu);
    menuViewPal_Click(window.viewer);
    EXPECT_FALSE(window.viewer.window.menuViewPal.checked);
    for (size_t i = 0; i < 16; ++i) EXPECT_FALSE(swatches[i].visible) << i;
  }
}

} // namespace
