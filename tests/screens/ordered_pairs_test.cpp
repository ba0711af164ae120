#include "core/file_kinds.h"
#include "formats/g9b_stream.h"
#include "screens/picture_bytes.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

using Fields = std::map<std::string, std::string>;

Fields fieldsOf(const ViewerState &viewer) {
  const auto digest = [](const uint32_t *words, size_t count) {
    const std::string_view bytes(reinterpret_cast<const char *>(words), count * sizeof *words);
    return std::to_string(std::hash<std::string_view>{}(bytes));
  };
  const WindowModel &window = viewer.window;
  const auto size = [](int32_t width, int32_t height) { return std::to_string(width) + "x" + std::to_string(height); };
  Fields fields{{"typeDescription", viewer.typeDescription},
                {"caption", window.caption},
                {"palette", digest(viewer.palette.data(), 4)}, // as many as every palette has
                {"size", size(viewer.imageWidth, viewer.imageHeight)},
                {"frame", digest(viewer.frameBits.data(), viewer.frameBits.size())},
                {"menus", menuText(window)},
                {"double height", window.menuDoubleHeight.checked ? "checked" : ""},
                {"view", size(window.mainViewWidth, window.mainViewHeight)},
                {"stretch", size(window.stretch.targetWidth, window.stretch.targetHeight)}};
  size_t label = 0;
  for (const std::string &text : {window.Label1, window.Label2, window.Label3, window.Label4}) {
    fields["Label" + std::to_string(++label)] = text;
  }
  using Number = std::pair<const char *, int>;
  for (const auto &[name, number] :
       {Number{"bitsPerPixel", viewer.bitsPerPixel}, Number{"colourMode", viewer.colourMode},
        Number{"colourCount", viewer.colourCount}, Number{"hasPalette", viewer.hasPalette},
        Number{"isPacked", viewer.isPacked}, Number{"spriteMode", viewer.spriteMode},
        Number{"paletteFilePos", viewer.paletteFilePos}}) {
    fields[name] = std::to_string(number);
  }
  return fields;
}

struct Picture {
  std::string path;
  Bytes file;
  std::string_view kept; // fields that keep the value of the picture before
};

// What the loaders below do not store. A rectangle file that is too short also keeps the rest of video memory, so it
// stands not among them.
constexpr std::string_view kKeepsSprites = "spriteMode";
constexpr std::string_view kKeepsPalette = "spriteMode palette";
constexpr std::string_view kKeepsPaletteFlag = "spriteMode palette hasPalette";
constexpr std::string_view kKeepsMode = "spriteMode colourMode";
constexpr std::string_view kKeepsModeAndText = "spriteMode colourMode Label3";
constexpr std::string_view kKeepsAll =
    "bitsPerPixel colourMode colourCount hasPalette isPacked spriteMode palette size "
    "frame Label1 Label2 Label3 menus view stretch";

std::vector<Picture> pictures() {
  const auto bload = [](uint16_t end, uint32_t start, size_t length = 60000, Bytes palette = {}, size_t at = 0) {
    return BloadBuilder{.endAddress = end, .body = withBytesAt(noise(length, start), at, palette)}.build();
  };
  const auto copy = [](uint32_t start) { return joined({word(9), word(8), noise(72, start)}); };
  const Bytes colours{0x70, 0x00, 0x07, 0x00, 0x21, 0x03, 0x77, 0x07, 0x11, 0x01, 0x22, 0x02, 0x33, 0x03, 0x44, 0x04,
                      0x55, 0x05, 0x66, 0x06, 0x12, 0x03, 0x34, 0x05, 0x56, 0x07, 0x13, 0x05, 0x24, 0x06, 0x35, 0x07};
  const auto low = [&](uint32_t start) { return bload(0x769F, start, 0x76A0, colours, 0x7680); };
  const auto high = [&](uint32_t start) { return bload(0x7FFF, start, 0xFAA0, colours, 0xFA80); };
  const auto whole = [&](uint32_t start) { return bload(0x7FFF, start); };
  const auto pattern = [&](uint32_t start) { return bload(0x37FF, start, 0x3800, colours, 0x1B80); };

  Bytes page(384);
  page[8] = 'P', page[16] = 'R', page[18] = 'S', page[23] = 'N';
  for (int i = 0; i < 352; ++i) page = joined({page, {255, static_cast<uint8_t>(i)}});
  Bytes ham = joined({{'H', 'A', 'M', 1, 0x20, 1, 0, 0}, word(512), word(8), Bytes(4), {0x20, 0, 0, 0, 0x60, 0, 0, 0}});
  ham = joined({ham, {0xA0, 0, 0, 0, 0x20, 2, 0, 0}, colours, noise(2048, 1)});
  for (size_t i = 0x40; i < 0xA0; ++i) ham[i] &= 0x07;
  const auto g9b = [](uint8_t count, uint8_t packed) {
    return Bytes{'G', '9', 'B', 11, 0, 8, 0x40, count, 4, 0, 2, 0, packed, 0, 0, 0};
  };
  const Bytes g9bPacked =
      joined({g9b(16, 1), noise(48, 1), {1}, G9bStream{}.block().literals({9}).copy(7, 0).end().bytes});

  std::vector<Picture> all{
      {"x.DAT", joined({word(9), word(8), noise(36, 2), colours}), kKeepsSprites},
      {"x.CMP", {4, 9, 2, 0xC0, 0xFF, 0xF0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, kKeepsSprites},
      {"x.PCT", page, kKeepsPalette},
      {"tiles.SC4", joined({colours, noise(4096, 9)}), ""},
      {"x.SCR", bload(0x1400, 13, 5120), kKeepsMode},
      {"x.TGS", noise(2944, 14), kKeepsModeAndText},
      {"x.SR7", BloadBuilder{.identifier = 0xFD, .body = noise(9999, 19)}.build(), kKeepsSprites},
      {"x.HAM", ham, kKeepsSprites},
      {"x.G9B", g9bPacked, kKeepsSprites},
      {"plain.G9B", joined({g9b(0, 0), noise(8, 37)}), kKeepsPalette},
      {"three.G9B", joined({g9b(3, 0), noise(8, 38)}), kKeepsPaletteFlag},
      {"x.SGX", {2, 8, 2, 1, 2, 3, 4, 1, 4, 1, 5, 255, 0, 0, 1, 12, 1, 6, 0, 0, 0}, kKeepsSprites}};
  uint32_t start = 40;
  const auto add = [&](const char *extensions, const auto &file, std::string_view kept) {
    for (const std::string &extension : wordsOf(extensions)) all.push_back({"x" + extension, file(++start), kept});
  };
  add(".GE5 .SC5 .SR5 .SC6 .SR6", low, kKeepsSprites);
  add(".SC7 .SCA .SRA .S10 .SCB .SRB .S11", high, kKeepsSprites);
  add(".PIC .SC8 .SR8 .GE8 .SCC .SRC .S12", whole, kKeepsPaletteFlag);
  add(".SC2 .SR2 .SC4 .SR4", pattern, "");
  add(".STP .GL5 .GL6 .GL7 .GLA .GLB", copy, kKeepsSprites);
  add(".GL8", copy, kKeepsPalette);
  add(".GLC", copy, kKeepsAll);
  return all;
}

TEST(OrderedPairs, APictureIsTheSameAfterEveryOther) {
  const std::vector<Picture> all = pictures();
  std::set<std::string> extensions;
  const auto open = [](TestViewer &window, const Picture &picture) {
    memoryDisk()["x.tcs"] = noise(1472, 40);
    window.open(picture.path, picture.file);
  };
  std::map<Flag16, std::vector<Fields>> fresh; // the palette's commands follow hasPalette, which may be an old one
  for (const Flag16 hasPalette : {kFalse, kTrue}) {
    for (const Picture &picture : all) {
      TestViewer window;
      window.viewer.hasPalette = hasPalette;
      open(window, picture);
      fresh[hasPalette].push_back(fieldsOf(window.viewer));
      extensions.insert(window.viewer.fileExtension);
      EXPECT_EQ(window.viewer.pictureShown, toFlag(picture.kept != kKeepsAll)) << picture.path;
    }
  }
  EXPECT_EQ(extensions.size(), kFileKinds.size() - 3); // without the videos

  // One walk through all ordered pairs: 0 0 1 0 2 0 ... 1 1 2 1 3 1 ...
  TestViewer window;
  const auto step = [&](size_t next) {
    const Fields before = fieldsOf(window.viewer);
    const std::string name = window.viewer.filePath + " then " + all[next].path;
    Fields expected = fresh.at(window.viewer.hasPalette)[next];
    open(window, all[next]);
    for (const std::string &field : wordsOf(all[next].kept)) expected[field] = before.at(field);
    EXPECT_EQ(fieldsOf(window.viewer), expected) << name;
  };
  for (size_t first = 0; first < all.size(); ++first) {
    step(first);
    step(first);
    for (size_t second = first + 1; second < all.size(); ++second) {
      step(second);
      step(first);
    }
  }
}

} // namespace
