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
    const Bytes file = tileSet();
    window.open(std::string("x") + extension, file);
    EXPECT_EQ(viewer.typeDescription, "VSCREEN TileSet file");
    EXPECT_EQ(descriptionOf(viewer), "1 bits, mode 0, 16 colours, palette -1, packed 0, sprites -1; 256x64, 16 colors");
    EXPECT_EQ(viewer.paletteFilePos, 1 + 32);
    EXPECT_EQ(viewer.palette[0], 0xFF0000u);
    EXPECT_EQ(viewer.palette[1], 0xFFFFFFu);
    EXPECT_EQ(viewer.palette[16], kOldColour);
    for (size_t n = 0; n < 256 * 64; ++n) {
      const size_t x = n % 256, line = (n / 256 / 8 * 32 + x / 8) * 8 + n / 256 % 8;
      const bool set = (file[32 + line] << x % 8 & 0x80) != 0;
      const uint8_t colours = file[32 + 2048 + line];
      ASSERT_EQ(viewer.frameBits[n], viewer.palette[set ? colours / 16 : colours % 16]) << n;
    }
    window.open("x.SC4", BloadBuilder{}.build()); // a pattern screen again
    EXPECT_EQ(viewer.typeDescription, "Screen 4 BLOAD file");
    EXPECT_EQ(viewer.spriteMode, kFalse);
  }
}

TEST(Vscreen, LengthAndFirstByteTellATileSet) {
  using Row = std::tuple<size_t, uint8_t, bool>;
  for (const auto &[length, firstByte, loads] : {Row{4127, 0, false}, Row{4128, 0, true}, Row{4129, 0, false},
                                                 Row{4128, 253, true}, Row{4128, 254, false}, Row{4128, 255, true}}) {
    SCOPED_TRACE(testing::Message() << length << " bytes, first " << int{firstByte});
    UsedViewer window;
    const std::string before = pictureText(window.viewer);
    Bytes file = tileSet();
    file.resize(length);
    file[0] = firstByte;
    window.open("x.SC4", file);
    EXPECT_EQ(window.viewer.window.Label4, loads ? "" : errorLine(".SC4"));
    EXPECT_EQ(pictureText(window.viewer) == before, !loads);
  }
}

TEST(Vscreen, Border) {
  UsedViewer window;
  const ViewerState &viewer = window.viewer;
  window.open("x.SCR", BloadBuilder{.endAddress = 0x1400, .body = withBytesAt(Bytes(5120), 128, {0x2F})}.build());
  EXPECT_EQ(viewer.window.Label4, "");
  EXPECT_EQ(descriptionOf(viewer), "4 bits, mode 119, 16 colours, palette -1, packed 0, sprites 1; 256x40, 16 colors");
  EXPECT_EQ(viewer.paletteFilePos, 0);
  EXPECT_EQ(viewer.frameBits.size(), 256u * 40);
  EXPECT_EQ(viewer.frameBits[256], 0x24DA24u);
  EXPECT_EQ(viewer.frameBits[257], 0xFFFFFFu);
  const std::string before = pictureText(viewer);
  for (const BloadBuilder &header :
       {BloadBuilder{.identifier = 0xFD, .endAddress = 0x1400}, BloadBuilder{.startAddress = 1, .endAddress = 0x1400},
        BloadBuilder{.endAddress = 0x13FF}, BloadBuilder{.endAddress = 0x1401}, BloadBuilder{.endAddress = 0x9400},
        BloadBuilder{.endAddress = 0x1400, .executionAddress = 1}}) {
    window.open("x.SCR", header.build());
    EXPECT_EQ(viewer.window.Label4, errorLine(".SCR"));
    EXPECT_EQ(pictureText(viewer), before);
  }
}

TEST(Vscreen, SpriteSet) {
  UsedViewer window;
  const ViewerState &viewer = window.viewer;
  Bytes sprites = noise(2944, 6), colours = noise(1472, 7);
  sprites[0] = sprites[32] = 0x80; // both layers of the first pixel
  colours[0] = 0xF5, colours[16] = 0xF2;
  memoryDisk()["d\\x.tcs"] = colours;
  window.open("d\\x.TGS", sprites);
  EXPECT_EQ(viewer.window.Label4, "");
  EXPECT_EQ(descriptionOf(viewer), "3 bits, mode 119, 16 colours, palette -1, packed 0, sprites 1; 256x48, old colors");
  EXPECT_EQ(viewer.frameBits[0], 0x48DAFFu); // 5 and 2 are colour 7
  ASSERT_EQ(viewer.frameBits.size(), 256u * 48);
  for (size_t n = 0; n < 256 * 48; ++n) {
    const size_t x = n % 256, y = n / 256, cell = y / 16 * 16 + x / 16;
    size_t index = 0;
    for (size_t layer = 0; layer < 2 && cell < 46; ++layer) {
      const uint8_t bits = sprites[cell * 64 + layer * 32 + x % 16 / 8 * 16 + y % 16];
      if ((bits << x % 8 & 0x80) != 0) index |= colours[cell * 32 + layer * 16 + y % 16] & 15u;
    }
    ASSERT_EQ(viewer.frameBits[n], viewer.palette[index]) << x << " " << y;
  }
}

TEST(Vscreen, ColourFileBesideTheSprites) {
  struct Row {
    const char *name;
    size_t spriteBytes;
    std::vector<std::pair<const char *, size_t>> others; // name and length
    const char *status;
  };
  const std::string notValid = errorLine(".TGS");
  for (const auto &[name, spriteBytes, others, status] :
       {Row{"as written", 2944, {{"d/a.Tcs", 1472}}, ""}, Row{"small letters", 2944, {{"d/A.tcs", 1472}}, ""},
        Row{"capitals", 2944, {{"d/A.TCS", 1472}}, ""}, Row{"name in another case", 2944, {{"d/a.tcS", 1472}}, ""},
        Row{"as written before any case", 2944, {{"d/A.TCS", 1}, {"d/A.tcs", 1472}}, ""},
        Row{"none", 2944, {}, kNoColours},
        Row{"in another folder", 2944, {{"A.tcs", 1472}, {"d/e/A.tcs", 1472}}, kNoColours},
        Row{"of another name", 2944, {{"d/AB.tcs", 1472}}, kNoColours},
        Row{"a byte short", 2944, {{"d/A.tcs", 1471}}, kNoColours},
        Row{"a byte long", 2944, {{"d/A.tcs", 1473}}, kNoColours}, Row{"empty", 2944, {{"d/A.tcs", 0}}, kNoColours},
        Row{"sprites a byte short", 2943, {{"d/A.tcs", 1472}}, notValid.c_str()},
        Row{"sprites a byte long", 2945, {{"d/A.tcs", 1472}}, notValid.c_str()},
        Row{"both wrong", 2945, {}, notValid.c_str()}}) {
    SCOPED_TRACE(name);
    UsedViewer window;
    const std::string before = pictureText(window.viewer);
    for (const auto &[other, length] : others) memoryDisk()[other] = Bytes(length, 3);
    window.open("d/A.TGS", Bytes(spriteBytes, 0xFF));
    EXPECT_EQ(window.viewer.window.Label4, status);
    EXPECT_EQ(pictureText(window.viewer) == before, *status != 0);
    EXPECT_EQ(window.viewer.frameBits.empty() ? 0x6DFF6D : window.viewer.frameBits[0], 0x6DFF6Du);
  }
}

} // namespace
