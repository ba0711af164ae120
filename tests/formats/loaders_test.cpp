#include "screens/picture_bytes.h"

namespace {

using Colours = std::pair<uint32_t, uint32_t>; // the first two entries

constexpr Colours kOwn{0x496D24, 0xFFFFFF}, kStandard{0x000000, 0x080808}, kStamp{0xFFFFFF, 0x000000};
constexpr Colours kKept{kOldColour, kOldColour};
const Bytes kOwnEntries{0x21, 0x03, 0x77, 0x07};

Bytes screen(size_t palette) {
  const Bytes body = palette == 0 ? noise(9, 1) : withBytesAt({0x12}, palette, kOwnEntries);
  return BloadBuilder{.endAddress = 0x769F, .body = body}.build(); // within all bounds but those of .SCR
}

Bytes packed(const Bytes &body) { return BloadBuilder{.identifier = 0xFD, .endAddress = 0x8000, .body = body}.build(); }

Bytes rectangle(int width, int height, const Bytes &behind) { return joined({word(width), word(height), behind}); }

Bytes page(const Bytes &body) {
  Bytes header(384, 0xEE);
  header[8] = 'P', header[16] = 'R', header[18] = 'S', header[23] = 'N';
  return joined({header, body});
}

// Where video memory comes from.
struct Body {
  size_t position;  // in the file; 0: packed
  uint8_t rest = 0; // value of the bytes behind it
  Bytes unpacked = {};
};

TEST(Loaders, LoadedPicture) {
  const Body plain{7}, kept{4, kOldByte}, cleared{4};
  const Bytes cut = rectangle(9, 8, noise(20, 7)), tiles = joined({kOwnEntries, Bytes(28), noise(4096, 5)});
  const Bytes sprites = noise(2944, 6), spriteColours = noise(1472, 7);
  const Body spriteSet{0, 0, joined({sprites, Bytes(128), spriteColours})};
  const Body runs5{0, 0, Bytes(27285, 0x78)}, runs7{0, 0, Bytes(54315, 0x78)}; // the last run goes beyond the picture
  const Bytes runs = repeated(352, {255, 0x78});
  using Row = std::tuple<std::string, Bytes, std::string, int32_t, Colours, Body, bool>; // palette's end, high pixels
  for (const auto &[extensions, file, description, paletteFilePos, colours, body, high] :
       {Row{".SC2", screen(0), "1 0 16 -1 0 0 256x192 16 colors", 0, kStandard, plain, false},
        Row{".SC4", screen(0x1B80), "1 0 16 -1 0 0 256x192 16 colors", 0x1B88 + 32, kOwn, plain, false},
        Row{".SC4", tiles, "1 0 16 -1 0 -1 256x64 16 colors", 33, kOwn, {32}, false},
        Row{".SC5 .SR5 .GE5", screen(0x7680), "4 0 16 -1 0 1 256x212 16 colors", 30344 + 32, kOwn, plain, false},
        Row{".SR5", packed(runs), "4 0 16 -1 -1 1 256x212 16 colors", 30344, kStandard, runs5, false},
        Row{".SC6", screen(0x7680), "2 0 4 -1 0 1 512x212 4 colors", 30344 + 8, kOwn, plain, true},
        Row{".SC7 .SR7", screen(0xFA80), "4 0 16 -1 0 1 512x212 16 colors", 64136 + 32, kOwn, plain, true},
        Row{".SR7", packed(runs), "4 0 16 -1 -1 1 512x212 16 colors", 64136, kStandard, runs7, true},
        Row{".SC8", screen(0), "8 64 255 1 0 1 256x212 256 colors", 0, kKept, plain, false},
        Row{".SCA", screen(0xFA80), "8 255 16 -1 0 1 256x212 YAE colors", 64136 + 32, kOwn, plain, false},
        Row{".SCC", screen(0), "8 128 0 1 0 1 256x212 YJK colors", 0, kKept, plain, false},
        Row{".SCR", withBytesAt(screen(0), 3, {0, 0x14}), "4 119 16 -1 0 1 256x40 16 colors", 0, kStandard, plain,
            false},
        Row{".GL5", cut, "4 0 16 -1 0 1 9x8 16 colors", 0, kStandard, kept, false},
        Row{".GL6", cut, "2 0 4 -1 0 1 9x8 4 colors", 0, kStandard, kept, true},
        Row{".STP", cut, "2 0 4 -1 0 1 9x8 4 colors", 0, kStamp, kept, true},
        Row{".GL7", cut, "4 0 16 -1 0 1 9x8 16 colors", 0, kStandard, kept, true},
        Row{".GL8", cut, "8 64 0 0 0 1 9x8 256 colors", 0, kKept, kept, false},
        Row{".GLA", cut, "8 255 16 -1 0 1 9x8 YAE colors", 0, kStandard, kept, false},
        Row{".DAT", cut, "4 0 16 -1 0 1 9x8 16 colors", 41 + 32, kStandard, cleared, false},
        Row{".DAT", rectangle(9, 11, {}), "4 0 16 -1 0 1 9x11 16 colors", 54 + 32, kStandard, cleared, false},
        Row{".DAT", withBytesAt(rectangle(11, 13, {}), 75, kOwnEntries), "4 0 16 -1 0 1 11x13 16 colors", 76 + 32, kOwn,
            cleared, false},
        Row{".CMP", {1, 2, 1, 128, 128, 7}, "4 0 16 -1 -1 1 2x2 16 colors", 0, kStandard, {0, 0, {7, 7}}, false},
        Row{".PCT", page(runs), "1 0 2 0 -1 1 512x704 2 colors", 0, kKept, {0, 0, Bytes(45056, 0x78)}, true},
        Row{".TGS", sprites, "3 119 16 -1 0 1 256x48 old colors", 0, kStandard, spriteSet, false}}) {
    for (const std::string &extension : wordsOf(extensions)) {
      for (const Flag16 noAspect : {kFalse, kTrue}) {
        SCOPED_TRACE(extension + " " + description);
        UsedViewer window;
        const ViewerState &viewer = window.viewer;
        window.viewer.preferences.Check5 = noAspect;
        memoryDisk()["x.tcs"] = spriteColours;
        window.open("x" + extension, file);
        EXPECT_EQ(viewer.window.Label4 + descriptionText(viewer), description);
        EXPECT_EQ(viewer.paletteFilePos, paletteFilePos);
        EXPECT_TRUE(viewer.palette[0] == colours.first && viewer.palette[1] == colours.second);
        EXPECT_EQ(viewer.palette[16], kOldColour);
        EXPECT_EQ(viewer.window.menuDoubleHeight.checked, high && noAspect == kFalse);
        Bytes vram = body.unpacked;
        if (body.position != 0) vram.assign(file.begin() + static_cast<std::ptrdiff_t>(body.position), file.end());
        vram.resize(viewer.vram.size(), body.rest);
        EXPECT_TRUE(bytesOf(viewer.vram) == vram);
      }
    }
  }
}

// What is loaded or refused if `change` lies at `at` in the file.
void expectHeader(const std::string &extension, const Bytes &file, size_t at, const Bytes &change, bool loads,
                  const std::string &halfway = "") {
  UsedViewer window;
  const ViewerState &viewer = window.viewer;
  const std::string before = pictureText(viewer) + descriptionText(viewer);
  window.open("x" + extension, withBytesAt(file, at, change));
  SCOPED_TRACE(extension + " " + std::to_string(at) + " " + testing::PrintToString(change));
  EXPECT_EQ(viewer.window.Label4, loads ? "" : "*** Error: Not a valid " + extension + " file.");
  EXPECT_EQ(viewer.pictureShown, toFlag(loads));
  EXPECT_EQ(pictureText(viewer) + descriptionText(viewer) == before, !loads && halfway.empty());
  EXPECT_TRUE(halfway.empty() || descriptionText(viewer) == halfway) << descriptionText(viewer);
}

TEST(Loaders, Headers) {
  const std::string plain = ".SC2 .SC4 .SC6 .SC8 .SCA .SCC .GE5", all = plain + " .SC5 .SR5 .SC7 .SR7";
  const std::string low = ".SC2 .SC4", middle = ".SC5 .SR5 .SC6", high = ".SC7 .SR7 .SC8 .SCA .SCC";
  const std::string narrow = ".GL5 .GL8 .GLA .DAT", wide = ".GL6 .STP .GL7";
  const Bytes bload = screen(0), cut = rectangle(8, 8, {});
  const Bytes ham{'H', 'A', 'M', 1, 0x20, 0, 0, 0, 0, 2, 4, 0};
  const Bytes g9b{'G', '9', 'B', 11, 0, 0, 64, 0, 2, 0, 3, 0, 0, 1, 2, 3};
  const std::string halfG9b = "0 64 0 1 1 1 2x3 old colors", halfHam = "4 0 16 -1 0 1 119x119 old colors";
  using Row = std::tuple<std::string, Bytes, size_t, std::vector<Bytes>, std::vector<Bytes>, std::string>;
  for (const auto &[extensions, file, at, refused, loaded, halfway] : // from where on what is changed
       {Row{plain, bload, 0, {{0}, {0xFD}, {0xFF}}, {}, ""},
        Row{".SR5 .SR7", bload, 0, {{0xFC}, {0xFF}, {0xFD, 1}, {0xFD, 0, 0, 0, 0, 0, 1}}, {}, ""},
        Row{all, bload, 1, {{1}, {0, 0x80}}, {}, ""}, // start address
        Row{all, bload, 5, {{1}, {0, 0x80}}, {}, ""}, // execution address
        Row{low, bload, 3, {{0xFE, 0x37}, {0, 0x80}, {0xFF, 0xFF}}, {{0xFF, 0x37}, {0xFF, 0x7F}}, ""},
        Row{middle, bload, 3, {{0xFE, 0x69}, {0, 0x80}, {0xFF, 0xFF}}, {{0xFF, 0x69}, {0xFF, 0x7F}}, ""},
        Row{high, bload, 3, {{0xFE, 0xD3}, {0, 0x80}}, {{0xFF, 0xD3}, {0xFF, 0xFF}, {0, 0}, {0xFF, 0x7F}}, ""},
        Row{".GE5", bload, 3, {{0x9E, 0x76}, {0xA0, 0x76}, {0x9F, 0xF6}}, {}, ""},
        Row{".SCR", bload, 3, {{0xFF, 0x13}, {1, 0x14}}, {{0, 0x14}}, ""},
        Row{narrow, cut, 0, {{7}, {1, 1}}, {{8}, {0, 1}, {8, 0, 212}}, ""},
        Row{wide, cut, 0, {{7}, {1, 2}}, {{0, 2, 212}}, ""},
        Row{narrow + " " + wide, cut, 1, {{0x80}, {0, 7}, {0, 213}, {0, 8, 0x80}}, {}, ""},
        Row{".HAM", ham, 0, {{'h'}, {'H', 'a'}, {'H', 'A', 'N'}}, {}, ""},
        Row{".HAM", ham, 3, {{0}, {2}, {1, 0x1F}, {1, 0x21}, {1, 0x20, 3}}, {{1, 0x20, 2}}, ""},
        Row{".HAM", ham, 8, {{1}, {0, 3}, {0, 2, 241}, {0, 2, 4, 1}}, {}, halfHam},
        Row{".G9B", g9b, 0, {{'g'}, {'G', 8}, {'G', '9', 'b'}, {'G', '9', 'B', 10}}, {}, ""},
        Row{".G9B", g9b, 8, {{0x41, 0x1F, 0x40, 0x1F}, {0xFF, 0xFF, 0xFF, 0xFF}}, {{0x40, 0x1F, 0x40, 0x1F}}, ""},
        Row{".G9B", g9b, 12, {{2}, {255}}, {}, halfG9b},
        Row{".CMP", {128, 212, 1}, 0, {{129}, {0, 213}}, {{0, 0}}, ""},
        Row{".PCT", page({}), 8, {{0}}, {}, ""},
        Row{".SC4", Bytes(4127), 0, {{}, Bytes(4129)}, {}, ""},
        Row{".TGS", Bytes(2943), 0, {{}, Bytes(2945)}, {}, ""}}) {
    for (const std::string &extension : wordsOf(extensions)) {
      for (const Bytes &change : refused) expectHeader(extension, file, at, change, false, halfway);
      for (const Bytes &change : loaded) expectHeader(extension, file, at, change, true);
    }
  }
}

TEST(Loaders, ColourFileBesideTheSprites) {
  using Others = std::vector<std::pair<const char *, size_t>>; // names and lengths
  const char *const noColours = "*** Error: Could not find corresponding .TCS file!";
  for (const auto &[others, status] : {std::pair<Others, const char *>{{{"d/a.Tcs", 1472}}, ""},
                                       {{{"d/A.TCS", 1}, {"d/A.tcs", 1472}}, ""}, // as it is written
                                       {{{"d/A.tcs", 1471}}, noColours},
                                       {{{"d/A.tcs", 1473}}, noColours},
                                       {{{"A.tcs", 1472}, {"d/e/A.tcs", 1472}, {"d/AB.tcs", 1472}}, noColours}}) {
    UsedViewer window;
    const std::string before = pictureText(window.viewer);
    for (const auto &[other, length] : others) memoryDisk()[other] = Bytes(length, 3);
    window.open("d/A.TGS", Bytes(2944, 0xFF));
    EXPECT_EQ(window.viewer.window.Label4, status);
    EXPECT_EQ(pictureText(window.viewer) == before, window.viewer.window.Label4 != "");
  }
}

} // namespace
