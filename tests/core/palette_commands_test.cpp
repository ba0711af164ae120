#include "core/palette_commands.h"

#include "core/display_geometry.h"
#include "core/display_settings.h"
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
  const Bytes file = repeated(16, {0x21, 0x03});                       // (73, 109, 36)
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

// 16 entries of that red.
Bytes palette(uint8_t red) { return repeated(16, {static_cast<uint8_t>(red << 4), 0}); }

TEST(PaletteCommands, ADroppedPaletteFile) {
  using Row = std::tuple<const char *, const char *, uint32_t, const char *>; // first pixel, path
  for (const auto &[picture, dropped, colour, path] :
       {Row{"a.SC5", "x.pl4", 0x490000, "a.SC5"}, Row{"a.SC5", "x.PAL", 0x490000, "a.SC5"},
        Row{"a.SC5", "x.PL8", 0, "x.PL8"}, Row{"a.SC8", "x.PL5", 0x0000FF, "a.SC8"}}) {
    TestViewer window;
    window.open(picture, BloadBuilder{.body = {0x03}}.build());
    memoryDisk()[dropped] = palette(2);
    window.platform.events.push_back({dropFile, dropped}); // in a load it is ignored
    menuReload_Click(window.viewer);
    EXPECT_EQ(window.viewer.filePath, picture);
    dropFile(window.viewer, dropped);
    EXPECT_EQ(window.viewer.frameBits[0], colour) << picture << dropped;
    EXPECT_EQ(window.viewer.filePath, path);
  }
}

TEST(PaletteCommands, OfTheSameName) {
  // The palettes beside the picture with their reds, x for an invalid one, s for a short one; the picture's red then.
  using Row = std::tuple<const char *, const char *, const char *, uint32_t>;
  for (const auto &[name, picture, beside, red] :
       {Row{"own digit first", "a.SC7", "PL4=1 PL5=2 PL6=3 PL7=4 PAL=5", 146}, Row{"5", "a.SR5", "PL5=2 PL7=4", 73},
        Row{"then 7", "a.GL5", "PAL=5 PL4=1 PL6=3 PL7=4", 146}, Row{"then 6", "a.SC5", "PAL=5 PL4=1 PL6=3", 109},
        Row{"then 4", "a.SC5", "PAL=5 PL4=1", 36}, Row{"then PAL", "a.SC5", "PAL=5 PL2=2", 182},
        Row{"of Screen 2", "a.SC2", "PL5=1 PL2=2", 73}, Row{"refused", "a.SC5", "PL5=x PL7=s PL6=3", 109},
        Row{"all refused", "a.SC5", "PL5=x PL7=s", 8}, Row{"no palette", "a.SC8", "PL5=1", 0}}) {
    SCOPED_TRACE(name);
    TestViewer window;
    for (const std::string &file : wordsOf(beside)) {
      Bytes bytes = palette(static_cast<uint8_t>(file[4] - '0'));
      if (file[4] == 'x') bytes = withBytesAt(palette(7), 30, {0x80});
      if (file[4] == 's') bytes.pop_back();
      memoryDisk()["a." + file.substr(0, 3)] = bytes;
    }
    const bool copied = picture[2] == 'G';
    window.open(picture, copied ? joined({word(8), word(8), Bytes(32, 0x11)}) : BloadBuilder{.body = {0x11}}.build());
    const auto before = window.viewer.palette;
    menuSamePalette_Click(window.viewer);
    EXPECT_EQ(window.viewer.palette[1], red > 8 ? red << 16 : before[1]);
    menuSamePalette_Click(window.viewer);
    EXPECT_EQ(window.viewer.palette, before);
    for (const char *path : {"", "bad.SC5"}) { // nothing of the palette's name is shown then
      *path == '\0' ? menuClose_Click(window.viewer) : window.open(path, {1});
      window.platform.log.clear();
      menuSamePalette_Click(window.viewer);
      EXPECT_TRUE(window.platform.log.empty());
    }
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
