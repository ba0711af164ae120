#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

constexpr const char *kNoColours = "*** Error: Could not find corresponding .TCS file!";

Bytes tileSet() { return joined({{0x70, 0x00, 0x77, 0x07}, Bytes(28), noise(4096, 5)}); }

TEST(Vscreen, TileSet) {
  for (const char *extension : {".SC4", ".SR4", ".SC2", ".SR2"}) {
    SCOPED_TRACE(extension);
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    window.open(std::string("x") + extension, tileSet());
    EXPECT_EQ(viewer.typeDescription, "VSCREEN TileSet file");
    EXPECT_EQ(descriptionOf(viewer), "1 bits, mode 0, 16 colours, palette -1, packed 0, sprites -1; 256x64, 16 colors");
    EXPECT_EQ(viewer.paletteFilePos, 1 + 32);
    EXPECT_EQ(viewer.palette[0], 0xFF0000u);
    EXPECT_EQ(viewer.palette[1], 0xFFFFFFu);
    EXPECT_EQ(viewer.palette[16], kOldColour);
    window.open("x.SC4", BloadBuilder{}.build()); // a pattern screen again
    EXPECT_EQ(viewer.typeDescription, "Screen 4 BLOAD file");
    EXPECT_EQ(viewer.spriteMode, kFalse);
  }
}

TEST(Vscreen, Border) {
  UsedViewer window;
  const ViewerState &viewer = window.viewer;
  window.open("x.SCR", BloadBuilder{.endAddress = 0x1400, .body = withBytesAt(Bytes(5120), 128, {0x2F})}.build());
  EXPECT_EQ(viewer.window.Label4 + descriptionOf(viewer),
            "4 bits, mode 119, 16 colours, palette -1, packed 0, sprites 1; 256x40, 16 colors");
  EXPECT_EQ(viewer.paletteFilePos, 0);
  EXPECT_EQ(viewer.frameBits[256], 0x24DA24u);
  EXPECT_EQ(viewer.frameBits[257], 0xFFFFFFu);
}

TEST(Vscreen, SpriteSet) {
  UsedViewer window;
  const ViewerState &viewer = window.viewer;
  Bytes sprites = noise(2944, 6), colours = noise(1472, 7);
  sprites[0] = sprites[32] = 0x80; // both layers of the first pixel
  colours[0] = 0xF5, colours[16] = 0xF2;
  memoryDisk()["d\\x.tcs"] = colours;
  window.open("d\\x.TGS", sprites);
  EXPECT_EQ(viewer.window.Label4 + descriptionOf(viewer),
            "3 bits, mode 119, 16 colours, palette -1, packed 0, sprites 1; 256x48, old colors");
  EXPECT_EQ(viewer.frameBits[0], 0x48DAFFu); // 5 and 2 are colour 7
}

TEST(Vscreen, ColourFileBesideTheSprites) {
  using Others = std::vector<std::pair<const char *, size_t>>; // names and lengths
  using Row = std::tuple<const char *, size_t, Others, std::string>;
  const std::string notValid = errorLine(".TGS");
  for (const auto &[name, spriteBytes, others, status] :
       {Row{"as written", 2944, {{"d/a.Tcs", 1472}}, ""}, Row{"small letters", 2944, {{"d/A.tcs", 1472}}, ""},
        Row{"capitals", 2944, {{"d/A.TCS", 1472}}, ""}, Row{"name in another case", 2944, {{"d/a.tcS", 1472}}, ""},
        Row{"as written before any case", 2944, {{"d/A.TCS", 1}, {"d/A.tcs", 1472}}, ""},
        Row{"in another folder", 2944, {{"A.tcs", 1472}, {"d/e/A.tcs", 1472}}, kNoColours},
        Row{"of another name", 2944, {{"d/AB.tcs", 1472}}, kNoColours}, Row{"none", 2944, {}, kNoColours},
        Row{"both wrong", 2945, {}, notValid}}) {
    SCOPED_TRACE(name);
    UsedViewer window;
    const std::string before = pictureText(window.viewer);
    for (const auto &[other, length] : others) memoryDisk()[other] = Bytes(length, 3);
    window.open("d/A.TGS", Bytes(spriteBytes, 0xFF));
    EXPECT_EQ(window.viewer.window.Label4, status);
    EXPECT_EQ(pictureText(window.viewer) == before, !status.empty());
    EXPECT_EQ(window.viewer.frameBits.empty() ? 0x6DFF6D : window.viewer.frameBits[0], 0x6DFF6Du);
  }
}

} // namespace
