#include "screens/picture_bytes.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

struct Colours {
  uint32_t first, second;
};

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
  Bytes runs;
  for (int i = 0; i < 300; ++i) runs = joined({runs, {255, 0x78}});
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
        Row{".DAT", rectangle(9, 9, {}), "4 0 16 -1 0 1 9x9 16 colors", 46 + 32, kStandard, cleared, false},
        Row{".DAT", rectangle(9, 11, {}), "4 0 16 -1 0 1 9x11 16 colors", 54 + 32, kStandard, cleared, false},
        Row{".DAT", withBytesAt(rectangle(11, 13, {}), 75, kOwnEntries), "4 0 16 -1 0 1 11x13 16 colors", 76 + 32, kOwn,
            cleared, false},
        Row{".CMP", {1, 2, 1, 128, 128, 7}, "4 0 16 -1 -1 1 2x2 16 colors", 0, kStandard, {0, 0, {7, 7}}, false},
        Row{".PCT", page({1, 6, 5}), "1 0 2 0 -1 1 512x704 2 colors", 0, kKept, {0, 0, {6, 5}}, true},
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

enum Outcome { kRefused, kLoads, kIgnored };

void expectOutcome(const std::string &extension, const Bytes &file, Outcome outcome, std::string description = "") {
  UsedViewer window;
  const ViewerState &viewer = window.viewer;
  if (description.empty() && outcome != kLoads) description = descriptionText(viewer);
  const std::string before = pictureText(viewer);
  window.open("x" + extension, file);
  SCOPED_TRACE(extension +
               testing::PrintToString(Bytes(file.begin(), file.begin() + std::min<long>(30, std::ssize(file)))));
  const std::string error = extension == ".SGX" ? "*** Error: Not a valid SGX file!" : errorLine(extension);
  EXPECT_EQ(viewer.window.Label4, outcome == kLoads ? "" : outcome == kIgnored ? "old status" : error);
  EXPECT_EQ(viewer.pictureShown, toFlag(outcome == kLoads));
  EXPECT_TRUE(description.empty() || descriptionText(viewer) == description) << descriptionText(viewer);
  EXPECT_TRUE(outcome == kLoads || !viewer.window.menuDoubleHeight.checked);
  EXPECT_TRUE(outcome == kLoads || !description.starts_with("119 119") || pictureText(viewer) == before);
}

TEST(Loaders, Headers) {
  const std::string plain = ".SC2 .SC4 .SC6 .SC8 .SCA .SCC .GE5", low = ".SC2 .SC4", middle = ".SC5 .SR5 .SC6";
  const std::string high = ".SC7 .SR7 .SC8 .SCA .SCC", narrow = ".GL5 .GL8 .GLA .DAT", wide = ".GL6 .STP .GL7";
  const Bytes bload = screen(0), cut = rectangle(8, 8, {});
  const Bytes ham{'H', 'A', 'M', 1, 0x20, 0, 0, 0, 0, 2, 4, 0};
  const Bytes g9b{'G', '9', 'B', 11, 0, 0, 64, 0, 2, 0, 3, 0, 0, 1, 2, 3};
  const std::string halfG9b = "0 64 0 1 1 1 2x3 old colors", halfHam = "4 0 16 -1 0 1 119x119 old colors";
  using Row = std::tuple<std::string, Bytes, size_t, std::vector<Bytes>, Outcome, std::string>; // offset, changes
  for (const auto &[extensions, file, at, changes, outcome, description] :
       {Row{plain, bload, 0, {{0}, {0xFD}, {0xFF}}, kRefused, ""},
        Row{".SC5 .SC7", bload, 0, {{0}, {0xFD}, {0xFF}, {0xFD, 1}}, kIgnored, ""},
        Row{".SR5 .SR7", bload, 0, {{0xFC}, {0xFF}, {0xFD, 1}, {0xFD, 0, 0, 0, 0, 0, 1}}, kRefused, ""},
        Row{".SR5 .SR7", bload, 0, {{0xFD}, {0xFD, 0, 0, 0, 0x80}, {0xFE}}, kLoads, ""},
        Row{plain + " .SC5 .SR5 .SC7 .SR7", bload, 1, {{1}, {0, 0x80}}, kRefused, ""}, // start address
        Row{plain + " .SC5 .SR5 .SC7 .SR7", bload, 5, {{1}, {0, 0x80}}, kRefused, ""}, // execution address
        Row{low, bload, 3, {{0xFF, 0x37}, {0xFF, 0x7F}}, kLoads, ""},
        Row{low, bload, 3, {{0xFE, 0x37}, {0, 0x80}, {0xFF, 0xFF}}, kRefused, ""},
        Row{middle, bload, 3, {{0xFF, 0x69}, {0xFF, 0x7F}}, kLoads, ""},
        Row{middle, bload, 3, {{0xFE, 0x69}, {0, 0x80}, {0xFF, 0xFF}}, kRefused, ""},
        Row{high, bload, 3, {{0xFF, 0xD3}, {0xFF, 0xFF}, {0, 0}, {0xFF, 0x7F}}, kLoads, ""},
        Row{high, bload, 3, {{0xFE, 0xD3}, {0, 0x80}}, kRefused, ""},
        Row{".GE5", bload, 3, {{0x9E, 0x76}, {0xA0, 0x76}, {0x9F, 0xF6}}, kRefused, ""},
        Row{".SCR", bload, 3, {{0xFF, 0x13}, {1, 0x14}}, kRefused, ""},
        Row{".SCR", bload, 3, {{0, 0x14}}, kLoads, ""},
        Row{narrow, cut, 0, {{8}, {0, 1}, {8, 0, 212}}, kLoads, ""},
        Row{wide, cut, 0, {{0, 2, 212}}, kLoads, ""},
        Row{narrow, cut, 0, {{7}, {1, 1}}, kRefused, ""},
        Row{wide, cut, 0, {{7}, {1, 2}}, kRefused, ""},
        Row{narrow + " " + wide, cut, 1, {{0x80}, {0, 7}, {0, 213}, {0, 8, 0x80}}, kRefused, ""},
        Row{".GLC", cut, 0, {{8}, {0, 1, 212}}, kRefused, ""},
        Row{".HAM", ham, 0, {{'h'}, {'H', 'a'}, {'H', 'A', 'N'}}, kRefused, ""},
        Row{".HAM", ham, 3, {{0}, {2}, {1, 0x1F}, {1, 0x21}, {1, 0x20, 3}}, kRefused, ""},
        Row{".HAM", ham, 8, {{1}, {0, 3}, {0, 2, 241}, {0, 2, 4, 1}}, kRefused, halfHam},
        Row{".HAM", ham, 5, {{2}, {1}}, kLoads, "4 0 16 -1 -1 1 512x4 16 colors"},
        Row{".HAM", ham, 7, {{1, 0, 2, 240}}, kLoads, "4 0 16 -1 0 1 512x480 16 colors"},
        Row{".G9B", g9b, 0, {{'g'}, {'G', 8}, {'G', '9', 'b'}}, kRefused, ""},
        Row{".G9B", g9b, 3, {{10}, {11, 1}}, kRefused, ""},
        Row{".G9B", g9b, 8, {{0x41, 0x1F, 0x40, 0x1F}, {0xFF, 0xFF, 0xFF, 0xFF}}, kRefused, ""}, // 8001 x 8000
        Row{".G9B", g9b, 12, {{2}, {255}}, kRefused, halfG9b},
        Row{".G9B", g9b, 8, {{0x40, 0x1F, 0x40, 0x1F}}, kLoads, "0 64 0 0 0 1 8000x8000 old colors"},
        Row{".G9B", g9b, 8, {{0xFF, 0xFF, 0, 0, 1}}, kLoads, "0 64 0 0 -1 1 65535x0 old colors"},
        Row{".SGX", {64, 0, 0}, 0, {{65}, {255}, {64, 1}, {64, 4}, {64, 6}}, kRefused, ""},
        Row{".CMP", {128, 212, 1}, 0, {{129}, {0, 213}}, kRefused, ""},
        Row{".CMP", {128, 212, 1}, 0, {{}, {0}, {0, 0}, {1, 0}}, kLoads, ""},
        Row{".PCT", page({}), 8, {{0}}, kRefused, ""},
        Row{".PCT", page({}), 16, {{0}, {'R', 1, 1}}, kRefused, ""},
        Row{".PCT", page({}), 23, {{0}}, kRefused, ""},
        Row{".SC4", Bytes(4128), 0, {{0xFE}}, kRefused, ""},
        Row{".SC4", Bytes(4127), 0, {{}}, kRefused, ""},
        Row{".SC4", Bytes(4129), 0, {{}}, kRefused, ""}}) {
    for (const std::string &extension : wordsOf(extensions)) {
      for (const Bytes &change : changes) expectOutcome(extension, withBytesAt(file, at, change), outcome, description);
    }
  }
}

TEST(Loaders, ColourFileBesideTheSprites) {
  using Others = std::vector<std::pair<const char *, size_t>>; // names and lengths
  using Row = std::tuple<size_t, Others, const char *>;
  const char *const noColours = "*** Error: Could not find corresponding .TCS file!";
  for (const auto &[spriteBytes, others, status] :
       {Row{2944, {{"d/a.Tcs", 1472}}, ""}, Row{2944, {{"d/A.TCS", 1}, {"d/A.tcs", 1472}}, ""}, // as it is written
        Row{2944, {{"d/A.tcs", 1471}}, noColours}, Row{2944, {{"d/A.tcs", 1473}}, noColours},
        Row{2944, {{"A.tcs", 1472}, {"d/e/A.tcs", 1472}, {"d/AB.tcs", 1472}}, noColours},
        Row{2943, {}, "*** Error: Not a valid .TGS file."}, Row{2945, {}, "*** Error: Not a valid .TGS file."}}) {
    UsedViewer window;
    const std::string before = pictureText(window.viewer);
    for (const auto &[other, length] : others) memoryDisk()[other] = Bytes(length, 3);
    window.open("d/A.TGS", Bytes(spriteBytes, 0xFF));
    EXPECT_EQ(window.viewer.window.Label4, status);
    EXPECT_EQ(pictureText(window.viewer) == before, window.viewer.window.Label4 != "");
  }
}

// DD-Graph pictures line by line, V9990 pictures block by block.
TEST(Loaders, TheWindowLivesWhileAPictureIsUnpacked) {
  using Row = std::tuple<const char *, Bytes, size_t>;
  const Bytes g9b{'G', '9', 'B', 11, 0, 8, 64, 0, 3, 0, 1, 0, 1, 9, 9, 9, 3};
  for (const auto &[path, file, passes] : {Row{"x.CMP", {4, 8, 1, 0}, 8}, Row{"x.G9B", g9b, 3}}) {
    UsedViewer window;
    for (int i = 0; i < 20; ++i) window.platform.events.push_back({[](ViewerState &, const std::string &) {}, {}});
    window.open(path, file);
    EXPECT_EQ(window.platform.events.size(), 20 - passes - 1) << path; // and once to show
  }
}

} // namespace
