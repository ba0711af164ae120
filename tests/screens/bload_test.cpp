#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

using Ends = std::vector<uint16_t>;

// End addresses that load and that fail.
const Ends kPatternEnds{0x37FF, 0x7FFF}, kNoPatternEnds{0x0000, 0x37FE, 0x8000, 0xFFFF};
const Ends kBoundEnds{0x69FF, 0x769F, 0x7FFF}, kNoBoundEnds{0x0000, 0x1234, 0x69FE, 0x8000, 0xD3FF, 0xFFFF};
const Ends kSignedEnds{0x0000, 0x1234, 0x7FFF, 0xD3FF, 0xFFFF}, kNoSignedEnds{0x8000, 0xD3FE};

struct Mode {
  const char *extensions;
  const Ends &endsThatLoad, &endsThatFail;
  int32_t paletteFilePos; // 0: not stored
  int bitsPerPixel, colourMode, colourCount;
  const char *Label1, *Label3;
};

const Mode kModes[] = {
    {".SC2 .SR2", kPatternEnds, kNoPatternEnds, 0, 1, 0, 16, "256x192", "16 colors"},
    {".SC4 .SR4", kPatternEnds, kNoPatternEnds, 0x1B88, 1, 0, 16, "256x192", "16 colors"},
    {".SC5 .SR5", kBoundEnds, kNoBoundEnds, 30344, 4, 0, 16, "256x212", "16 colors"},
    {".SC6 .SR6", kBoundEnds, kNoBoundEnds, 30344, 2, 0, 4, "512x212", "4 colors"},
    {".SC7 .SR7", kSignedEnds, kNoSignedEnds, 64136, 4, 0, 16, "512x212", "16 colors"},
    {".SC8 .SR8 .GE8 .PIC", kSignedEnds, kNoSignedEnds, 0, 8, 0x40, 255, "256x212", "256 colors"},
    {".SCA .SRA .S10 .SCB .SRB .S11", kSignedEnds, kNoSignedEnds, 64136, 8, 0xFF, 16, "256x212", "YAE colors"},
    {".SCC .SRC .S12", kSignedEnds, kNoSignedEnds, 0, 8, 0x80, 0, "256x212", "YJK colors"},
};

constexpr uint32_t kUntouched = 0x123456;

std::string errorLine(const std::string &extension) { return "*** Error: Not a valid " + extension + " file."; }

// A viewer after a picture that no mode above describes.
struct UsedViewer : TestViewer {
  UsedViewer() {
    viewer.bitsPerPixel = viewer.colourMode = viewer.colourCount = 77;
    viewer.imageWidth = viewer.imageHeight = 77;
    viewer.hasPalette = viewer.isPacked = viewer.spriteMode = kTrue;
    viewer.palette.fill(kUntouched);
    std::fill(viewer.vram.begin(), viewer.vram.end(), 0x77);
    viewer.vram.use(viewer.vram.size());
    viewer.window.Label4 = "before";
  }
};

TEST(Bload, LoadedPicture) {
  for (const Mode &mode : kModes) {
    for (const std::string &extension : wordsOf(mode.extensions)) {
      SCOPED_TRACE(extension);
      UsedViewer window;
      ViewerState &viewer = window.viewer;
      Bytes file = BloadBuilder{.body = {0x12}}.build();
      const bool fromFile = mode.paletteFilePos != 0, standard = extension == ".SC2" || extension == ".SR2";
      if (fromFile) file = withBytesAt(file, static_cast<size_t>(mode.paletteFilePos) - 1, {0x21, 0x03, 0x77, 0x07});
      window.open("x" + extension, file);
      EXPECT_EQ(viewer.bitsPerPixel, mode.bitsPerPixel);
      EXPECT_EQ(viewer.colourMode, mode.colourMode);
      EXPECT_EQ(viewer.colourCount, mode.colourCount);
      EXPECT_EQ(viewer.hasPalette, kTrue);
      EXPECT_EQ(viewer.isPacked, kFalse);
      EXPECT_EQ(viewer.spriteMode, toFlag(mode.bitsPerPixel != 1)); // only the pattern screens store it
      EXPECT_EQ(viewer.window.Label1, mode.Label1);
      EXPECT_EQ(viewer.window.Label2, std::to_string(mode.bitsPerPixel) + " bpp");
      EXPECT_EQ(viewer.window.Label3, mode.Label3);
      EXPECT_EQ(viewer.window.Label4, "");
      EXPECT_TRUE(menuText(viewer.window).starts_with("Close Save Copy View ")) << menuText(viewer.window);
      EXPECT_NE(viewer.inputFile.handle, nullptr);
      EXPECT_EQ(bytesOf(viewer.vram),
                withBytesAt(Bytes(file.begin() + 7, file.end()), 1024 * 1024 - 1, {0})); // zero behind
      EXPECT_EQ(viewer.palette[0], fromFile ? 0x496D24 : standard ? 0 : kUntouched);
      EXPECT_EQ(viewer.palette[1], fromFile ? 0xFFFFFF : standard ? 0x080808 : kUntouched);
      EXPECT_EQ(viewer.palette[viewer.colourCount], kUntouched);
      EXPECT_EQ(viewer.paletteFilePos, fromFile ? mode.paletteFilePos + 2 * mode.colourCount : 0);
      if (mode.bitsPerPixel != 8 || fromFile) continue;
      viewer.hasPalette = kFalse; // not stored
      window.open("x" + extension, file);
      EXPECT_EQ(viewer.hasPalette, kFalse);
    }
  }
}

TEST(Bload, HeaderAddresses) {
  for (const Mode &mode : kModes) {
    std::vector<std::pair<BloadBuilder, bool>> files;
    for (const uint16_t end : mode.endsThatLoad) files.push_back({{.endAddress = end}, true});
    for (const uint16_t end : mode.endsThatFail) files.push_back({{.endAddress = end}, false});
    for (const uint16_t address : Ends{0x0001, 0x0100, 0x8000}) {
      files.push_back({{.startAddress = address}, false});
      files.push_back({{.executionAddress = address}, false});
    }
    for (const std::string &extension : wordsOf(mode.extensions)) {
      for (const auto &[file, loads] : files) {
        SCOPED_TRACE(extension + " " + testing::PrintToString(file.build()));
        UsedViewer window;
        const std::string before = pictureText(window.viewer);
        window.open("x" + extension, file.build());
        EXPECT_EQ(window.viewer.window.Label4, loads ? "" : errorLine(extension));
        EXPECT_EQ(pictureText(window.viewer) == before, !loads);
      }
    }
  }
}

TEST(Bload, EveryIdentifier) {
  for (const Mode &mode : kModes) {
    for (const std::string &extension : wordsOf(mode.extensions)) {
      const std::string otherwise = extension == ".SC5" || extension == ".SC7" ? "before" : errorLine(extension);
      UsedViewer window;
      for (int identifier = 0; identifier < 256; ++identifier) {
        window.viewer.window.Label4 = "before";
        window.viewer.pictureShown = kFalse;
        window.open("x" + extension, BloadBuilder{.identifier = static_cast<uint8_t>(identifier)}.build());
        const bool loads = identifier == 0xFE || (identifier == 0xFD && (extension == ".SR5" || extension == ".SR7"));
        EXPECT_EQ(window.viewer.window.Label4, loads ? "" : otherwise) << extension << " " << identifier;
        EXPECT_EQ(window.viewer.pictureShown, toFlag(loads)) << extension << " " << identifier;
      }
    }
  }
}

TEST(Bload, LongAndShortFiles) {
  UsedViewer window;
  window.open("x.SC5", BloadBuilder{.body = Bytes(1024 * 1024 + 9, 0x11)}.build());
  EXPECT_EQ(bytesOf(window.viewer.vram), Bytes(1024 * 1024, 0x11));
  window.open("x.SC5", {0xFE, 0x00, 0x00, 0xFF, 0x69}); // ends within the header: the missing word is 0
  EXPECT_EQ(window.viewer.window.Label4, "");
  EXPECT_EQ(bytesOf(window.viewer.vram), Bytes(1024 * 1024));
  EXPECT_EQ(window.viewer.frameBits, std::vector<uint32_t>(256 * 212, 0x000000));
}

TEST(Bload, PackedPicture) {
  using Row = std::tuple<const char *, int32_t, size_t>;
  for (const auto &[path, paletteFilePos, pictureBytes] : {Row{"x.SR5", 30344, 27136}, Row{"x.SR7", 64136, 54272}}) {
    SCOPED_TRACE(path);
    Bytes body{3, 0x12, 0, 5, 0x34, 0, 0, 0x56}; // 3, 5 and 256 times
    while (body.size() < pictureBytes) body.insert(body.end(), {255, 0x78});
    const Bytes file = BloadBuilder{.identifier = 0xFD, .endAddress = 0x8000, .body = body}.build(); // any end address
    UsedViewer window;
    const ViewerState &viewer = window.viewer;
    // Colours in the file are not read.
    window.open(path, withBytesAt(file, static_cast<size_t>(paletteFilePos) - 1, {0x77, 0x07}));
    EXPECT_EQ(viewer.isPacked & viewer.hasPalette, kTrue);
    EXPECT_EQ(viewer.colourCount, 16);
    EXPECT_EQ(viewer.bitsPerPixel, 4);
    EXPECT_EQ(viewer.paletteFilePos, paletteFilePos);
    EXPECT_EQ(viewer.palette[1], 0x080808u);
    EXPECT_EQ(viewer.palette[15], 0xFFFFFFu);
    EXPECT_EQ(viewer.palette[16], kUntouched);
    std::vector<uint32_t> expected;
    for (size_t n = 0; n < pictureBytes; ++n) {
      const size_t left = n < 3 ? 1 : n < 8 ? 3 : n < 264 ? 5 : 7;
      expected.insert(expected.end(), {viewer.palette[left], viewer.palette[left + 1]});
    }
    EXPECT_TRUE(viewer.frameBits == expected);

    for (const BloadBuilder &refused : {BloadBuilder{.identifier = 0xFD, .startAddress = 1},
                                        BloadBuilder{.identifier = 0xFD, .executionAddress = 1}}) {
      const std::string before = pictureText(viewer);
      window.open(path, refused.build());
      EXPECT_EQ(viewer.window.Label4, errorLine(viewer.fileExtension));
      EXPECT_EQ(pictureText(viewer), before);
    }
  }
}

} // namespace
