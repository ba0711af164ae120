#include "core/dispatch.h"

#include "core/file_kinds.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <optional>
#include <tuple>
#include <utility>

namespace {

// Type text and extensions of every kind.
constexpr std::pair<const char *, const char *> kTypes[] = {
    {"DD-Graph BLOAD file", ".GE5"},      {"DD-Graph COPY file", ".DAT"},
    {"DD-Graph .CMP file", ".CMP"},       {"Dynamic Publisher file", ".PCT .STP"},
    {"Designer Plus file", ".PIC"},       {"Screen 2 BLOAD file", ".SC2 .SR2"},
    {"Screen 4 BLOAD file", ".SC4 .SR4"}, {"Screen 5 BLOAD file", ".SC5 .SR5"},
    {"Screen 5 COPY file ", ".GL5"},      {"VSCREEN Border file", ".SCR"},
    {"VSCREEN Sprite file", ".TGS"},      {"Screen 6 BLOAD file", ".SC6 .SR6"},
    {"Screen 6 COPY file ", ".GL6"},      {"Screen 7 BLOAD file", ".SC7 .SR7"},
    {"Screen 7 COPY file ", ".GL7"},      {"Screen 8 BLOAD file", ".SC8 .SR8 .GE8"},
    {"Screen 8 COPY file ", ".GL8"},      {"Screen10 BLOAD file", ".SCA .SRA .S10"},
    {"Screen10 COPY file ", ".GLA"},      {"Screen11 BLOAD file", ".SCB .SRB .S11"},
    {"Screen11 COPY file ", ".GLB"},      {"Screen12 BLOAD file", ".SCC .SRC .S12"},
    {"Screen12 COPY file ", ".GLC"},      {"Screen 7 HAM file", ".HAM"},
    {"Team Bomba G9B file", ".G9B"},      {"SymbOS graphic file", ".SGX"},
    {"SymbOS video file", ".VID"},        {"EVA YJK video file", ".EVA"},
    {"EVA RGB video file", ".EV8"}};

// Readable, but not from a BLOAD file with the addresses below.
constexpr std::string_view kOtherFormats =
    ".VID .EVA .EV8 .GE5 .DAT .CMP .PCT .STP .GL5 .SCR .TGS .GL6 .GL7 .GL8 .GLA .GLB .GLC .HAM "
    ".G9B .SGX";

const Bytes kPicture = BloadBuilder{.body = {0x1F, 0x23}}.build();

// What every start-up and every Close leaves.
void expectEmptyWindow(const ViewerState &viewer) {
  EXPECT_EQ(menuText(viewer.window), "");
  EXPECT_FALSE(viewer.window.menuViewPal.checked || viewer.window.menuDoubleHeight.checked);
  EXPECT_EQ(viewer.window.caption, "Korilan");
  EXPECT_EQ(viewer.window.Label1 + viewer.window.Label2 + viewer.window.Label3 + viewer.window.Label4, "");
  EXPECT_EQ(std::pair(viewer.window.mainViewWidth, viewer.window.mainViewHeight), std::pair(516, 428));
  EXPECT_EQ(viewer.window.stretch, Stretch{});
  for (const Swatch &swatch : viewer.window.Label5) EXPECT_FALSE(swatch.visible);
  EXPECT_EQ(viewer.inputFile.handle, nullptr);
  EXPECT_EQ(viewer.fileLoaded | viewer.pictureShown, kFalse);
  EXPECT_EQ(viewer.paletteFilePos | viewer.vramPos, 0);
  EXPECT_EQ(viewer.evaPlayer.fileOpen | viewer.evaPlayer.playing, kFalse);
  EXPECT_EQ(viewer.vidPlayer.fileOpen | viewer.vidPlayer.playing, kFalse);
  EXPECT_EQ(bytesOf(viewer.vram), Bytes(1024 * 1024));
  EXPECT_EQ(bytesOf(viewer.packedData), Bytes(1024 * 1024));
}

TEST(Dispatch, EveryKind) {
  size_t kinds = 0;
  for (const auto &[typeDescription, extensions] : kTypes) {
    for (const std::string &extension : wordsOf(extensions)) {
      SCOPED_TRACE(extension);
      TestViewer window;
      window.open("x" + extension, kPicture);
      const bool refused = kOtherFormats.find(extension) != std::string_view::npos;
      const std::string name = extension == ".SGX" ? "SGX file!" : extension + " file."; // one has its own text
      EXPECT_EQ(window.viewer.typeDescription, typeDescription);
      const bool silent = !refused || extension == ".VID"; // refused with a message of its own
      EXPECT_EQ(window.viewer.window.Label4, silent ? "" : "*** Error: Not a valid " + name);
      EXPECT_EQ(window.viewer.pictureShown, toFlag(!refused));
      ++kinds;
    }
  }
  EXPECT_EQ(kinds, kFileKinds.size());
}

TEST(Dispatch, ExtensionIsTheLastFourCharacters) {
  using Row = std::tuple<const char *, const char *, bool>;
  for (const auto &[path, extension, opened] :
       {Row{".SC5", "", false}, Row{"a.sC5", ".SC5", true},
        Row{"\u00E9.SC", "", false}, // four characters of five bytes
        Row{"\u00E9.sc5", ".SC5", true}, Row{"a.SC5 ", "SC5 ", false},
        Row{"ab\u65E5\u672C\u8A9E", "B\u65E5\u672C\u8A9E", false}, Row{"a.SC5\\b.bmp", ".BMP", false}}) {
    SCOPED_TRACE(path);
    TestViewer window;
    window.open(path, kPicture);
    EXPECT_EQ(window.viewer.fileExtension, extension);
    EXPECT_EQ(window.viewer.fileLoaded, toFlag(opened));
    EXPECT_EQ(window.viewer.pictureShown, toFlag(opened));
  }
}

TEST(Dispatch, UnknownExtensionAndShortPathLeaveTheRest) {
  TestViewer window;
  const ViewerState &viewer = window.viewer;
  window.open("good.SC7", kPicture);
  window.viewer.window.Label4 = "as it was";
  const std::string before = pictureText(viewer);
  window.open(".SC5", kPicture);
  EXPECT_EQ(viewer.fileExtension, ".SC7");
  EXPECT_TRUE(viewer.window.menuDoubleHeight.checked);
  window.open("good.txt", kPicture);
  EXPECT_EQ(viewer.fileExtension, ".TXT");
  EXPECT_FALSE(viewer.window.menuDoubleHeight.checked);
  EXPECT_EQ(viewer.typeDescription, "Screen 7 BLOAD file");
  EXPECT_EQ(viewer.window.caption, "Korilan - good.SC7");
  EXPECT_EQ(viewer.window.Label4, "as it was");
  EXPECT_EQ(pictureText(viewer), before);
}

TEST(Dispatch, PathIsSplitAtTheLastFolder) {
  using Row = std::pair<const char *, const char *>;
  std::vector<Row> rows{{"", "a.SC5"}, {"C:\\one\\two x\\", "a b.SC5"}, {"\u00E9\\", "\u00E9.sc5"}};
#ifdef _WIN32
  rows.insert(rows.end(), {{"", "one/a.SC5"}, {"one/two\\", "a.SC5"}});
#else
  rows.insert(rows.end(), {{"/one/", "a.SC5"}, {"one/two\\", "a.SC5"}, {"one\\two/", "a.SC5"}});
#endif
  for (const auto &[folder, name] : rows) {
    TestViewer window;
    window.open(std::string(folder) + name, kPicture);
    EXPECT_EQ(window.viewer.folderPath, folder);
    EXPECT_EQ(window.viewer.fileName, name);
    EXPECT_EQ(window.viewer.window.caption, std::string("Korilan - ") + name);
  }
}

TEST(Dispatch, CommandLineHoldsAtMostOnePath) {
  using Row = std::pair<const char *, std::optional<std::string>>;
  for (const auto &[commandLine, path] :
       {Row{"", std::nullopt}, Row{"\"", ""}, Row{"C:\\one two\\a.SC5", "C:\\one two\\a.SC5"},
        Row{"\"C:\\a b.SC5\"", "C:\\a b.SC5"}, Row{"\"a.SC5\" \"b.SC5\"", std::nullopt},
        Row{"\"a.SC5\"  \"b\"", "a.SC5\"  \"b"}, // two blanks pass
        Row{"C:\\a.SC5 D:\\b.SC5", std::nullopt}, Row{"abcd:f", "abcd:f"}, Row{"abcde:", std::nullopt},
        Row{"\u00E9\u00E9cd:f", "\u00E9\u00E9cd:f"}}) {
    EXPECT_EQ(pathFromCommandLine(commandLine), path) << commandLine;
  }
  TestViewer window;
  memoryDisk()["C:\\a b.sc5"] = kPicture;
  startViewer(window.viewer, "\"C:\\a b.sc5\"");
  EXPECT_EQ(window.viewer.filePath, "C:\\a b.sc5");
  EXPECT_EQ(window.viewer.pictureShown, kTrue);
}

TEST(Dispatch, EmptyWindowAtStartUpAndAfterClose) {
  TestViewer window;
  ViewerState &viewer = window.viewer;
  expectEmptyWindow(viewer);
  EXPECT_EQ(viewer.zoomMode, 1);
  EXPECT_EQ(viewer.palette, (std::array<uint32_t, 256>{}));

  window.open("packed.SR7", BloadBuilder{.identifier = 0xFD, .body = {0, 0, 0x1F}}.build());
  viewer.evaPlayer = {.fileOpen = kTrue, .playing = kTrue};
  viewer.vidPlayer = {.fileOpen = kTrue, .playing = kTrue};
  viewer.window.menuViewPal.checked = true;
  for (Swatch &swatch : viewer.window.Label5) swatch.visible = true;
  viewer.paletteFilePos = viewer.vramPos = 1;
  menuClose_Click(viewer);
  expectEmptyWindow(viewer);
}

TEST(Dispatch, RefusedFileIsTheCurrentOneBesideTheOldPicture) {
  for (const bool exists : {true, false}) {
    SCOPED_TRACE(exists ? "bad header" : "cannot be opened");
    TestViewer window;
    ViewerState &viewer = window.viewer;
    window.open("good.SC6", BloadBuilder{.body = {0x1B}}.build());
    viewer.evaPlayer = {.fileOpen = kTrue, .playing = toFlag(exists)};
    viewer.vidPlayer = {.fileOpen = kTrue, .playing = toFlag(!exists)};
    const std::string before = pictureText(viewer);
    if (exists) memoryDisk()["d\\bad.SC8"] = {0x00};
    openPath(viewer, "d\\bad.SC8");
    EXPECT_EQ(viewer.window.Label4, "*** Error: Not a valid .SC8 file.");
    EXPECT_EQ(pictureText(viewer), before);
    EXPECT_FALSE(viewer.window.menuDoubleHeight.checked);
    EXPECT_EQ(viewer.typeDescription, "Screen 8 BLOAD file");
    EXPECT_EQ(viewer.window.caption, "Korilan - bad.SC8");
    EXPECT_EQ(viewer.fileLoaded, kTrue);
    EXPECT_EQ(viewer.paletteFilePos | viewer.vramPos, 0);
    EXPECT_EQ(viewer.inputFile.handle != nullptr, exists); // stays open
    EXPECT_EQ(viewer.evaPlayer.fileOpen | viewer.evaPlayer.playing, kFalse);
    EXPECT_EQ(viewer.vidPlayer.fileOpen | viewer.vidPlayer.playing, kFalse);
  }
}

} // namespace
