// Opening of files: what the window is then, names, paging through a folder.
#include "core/display_settings.h"
#include "core/file_kinds.h"
#include "core/folder_navigation.h"
#include "support/scarce_memory.h"
#include "support/test_viewer.h"
#include "video/eva_player.h"

namespace {

const Bytes kPicture = BloadBuilder{.body = {0x1F, 0x23}}.build();

// Texts, menus, heights, and a digit a mark; the last five are swatches and a video's.
std::string windowText(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  std::string text;
  for (const std::string &part :
       {window.caption, viewer.typeDescription, window.Label1, window.Label3, window.Label4, window.readout.text,
        menuText(window), std::to_string(window.mainViewHeight), std::to_string(window.stretch.targetHeight)}) {
    text += part + "|";
  }
  for (const bool marked :
       {window.menuDoubleHeight.checked, viewer.fileLoaded == kTrue, viewer.pictureShown == kTrue,
        viewer.inputFile.handle != nullptr, window.menuViewPal.checked, window.Label5[15].visible,
        viewer.player != nullptr, window.Image1.visible && window.Image2.visible, window.HScroll1.visible}) {
    text += marked ? "1" : "0";
  }
  return text;
}

// Marks as no file leaves them.
void disturb(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  viewer.player = &kEvaPlayer;
  window.Image1.visible = window.Image2.visible = window.HScroll1.visible = true;
  window.menuRestPal.enabled = window.menuViewPal.checked = true;
  window.Label5.fill({.visible = true});
  window.readout.text = window.Label4 = "old";
}

TEST(Opening, EmptyWindowAtStartUpAndAfterClose) {
  TestViewer window;
  ViewerState &viewer = window.viewer;
  EXPECT_EQ(windowText(viewer), "Korilan||||||OEQ|428|0|000000000");
  window.open("packed.SR7", BloadBuilder{.identifier = 0xFD, .body = {0, 0, 0x1F}}.build());
  EXPECT_EQ(windowText(viewer),
            "Korilan - packed.SR7|Screen 7 BLOAD file|512x212|16 colors|||OWSCEQZAINPLT|428|424|111000000");
  disturb(viewer);
  const uint32_t serial = viewer.window.pictureSerial;
  window.pressCtrl('W');
  EXPECT_EQ(windowText(viewer), "Korilan|Screen 7 BLOAD file|||||OEQ|428|0|000000000");
  EXPECT_NE(viewer.window.pictureSerial, serial);
  EXPECT_TRUE(bytesOf(viewer.vram) == Bytes(1 << 20) && bytesOf(viewer.packedData) == Bytes(1 << 20));
}

TEST(Opening, AFileThatIsIgnoredOrRefusedLeavesThePicture) {
  // Caption, type and status are those of the refused file, and no video is open any more.
  const std::string picture = "|512x212|16 colors|", menus = "|old|OWSCEQZAINPLTR|428|424|";
  const std::string ignored = "Korilan - good.SC7|Screen 7 BLOAD file" + picture + "old" + menus;
  const std::string error = "*** Error: Not a valid .SC6 file.", kind = "Screen 6 BLOAD file" + picture + error + menus;
  using Row = std::pair<const char *, std::string>;
  for (const auto &[path, text] : {Row{".SC5", ignored + "111011111"}, Row{"good.txt", ignored + "011011111"},
                                   Row{"d\\none.SC6", "Korilan - none.SC6|" + kind + "011011000"},
                                   Row{"d\\bad.SC6", "Korilan - bad.SC6|" + kind + "011011000"}}) {
    TestViewer window;
    window.open("good.SC7", kPicture);
    disturb(window.viewer);
    memoryDisk()["d\\bad.SC6"] = {0x00};
    const std::string before = pictureText(window.viewer);
    openPath(window.viewer, path);
    EXPECT_EQ(windowText(window.viewer), text);
    EXPECT_EQ(pictureText(window.viewer), before);
    EXPECT_EQ(window.viewer.loadError, text.starts_with(ignored) ? "" : error);
    window.open("good.SC7", kPicture);
    EXPECT_EQ(window.viewer.loadError, "");
  }
}

TEST(Opening, ThePictureBeforeStaysIfThereIsNotEnoughMemory) {
  for (const int refused : {1, 2}) { // video memory, frame
    TestViewer window;
    window.open("before.SC8", BloadBuilder{.body = {0x1C}}.build());
    const std::vector<uint32_t> before = window.viewer.frameBits;
    scarceMemory() = {.refusedBlock = refused};
    window.open("large.G9B", joined({{'G', '9', 'B', 11, 0, 16, 0, 0}, word(1000), word(600), Bytes(4)}));
    scarceMemory() = {};
    EXPECT_EQ(window.viewer.loadError, "*** Error: Not enough memory.");
    EXPECT_TRUE(window.viewer.frameBits == before && window.viewer.frameWidth == 256);
    menuReload_Click(window.viewer);
    EXPECT_EQ(window.viewer.frameBits.size(), 600'000u);
  }
}

TEST(Opening, NamesOfTheFileOfACommandLine) {
  using Row = std::pair<const char *, const char *>; // folder and name of an opened file, and the extension
  for (const auto &[commandLine, names] :
       {Row{"", "||"}, Row{"\"", "||"}, Row{"\"C:\\one\\a.sC5\"", "C:\\one\\|a.sC5|.SC5"},
        Row{"\"a.SC5\" \"b.SC5\"", "||"}, Row{"\"a.SC5\"  \"b.SC5\"", "|a.SC5\"  \"b.SC5|.SC5"}, // two blanks pass
        Row{"C:\\a.SC5 D:\\b.SC5", "||"}, Row{"\u00E9\u00E9cd:.SC5", "|\u00E9\u00E9cd:.SC5|.SC5"},
        Row{"abcde:.SC5", "||"}, Row{".SC5", "||"}, Row{"a.SC5 ", "||SC5 "}, Row{"\u00E9.SC", "||"}, // four characters
        Row{"C:\\two x\\\u00E9 b.SC5", "C:\\two x\\|\u00E9 b.SC5|.SC5"}}) {
    TestViewer window;
    ViewerState &viewer = window.viewer;
    startViewer(viewer, commandLine);
    EXPECT_EQ(viewer.folderPath + "|" + viewer.fileName + "|" + viewer.fileExtension, names) << commandLine;
  }
}

// What every folder lists, in this order, whatever the disk holds.
std::vector<std::string> listing;

struct FolderViewer : TestViewer {
  FileOps files = memoryFiles();

  explicit FolderViewer(const std::string &names) {
    files.listFolder = [](const char *) { return listing; };
    viewer.platform.files = &files;
    listing = wordsOf(names);
    for (const std::string &name : listing) memoryDisk()["d\\" + name] = BloadBuilder{}.build();
  }
};

TEST(FolderNavigation, WhichFileIsOpened) {
  using Row = std::tuple<int, std::string, const char *, const char *>; // key, open file, then the folder
  constexpr int kPrevious = 33, kNext = 34, kLast = 35, kFirst = 36;
  const char *three = "c.SC5 a.SC5 b.SC5"; // the order of the system, not that of the letters
  for (const auto &[key, current, left, expected] :
       {Row{kNext, "c.SC5", three, "a.SC5"}, Row{kNext, "b.SC5", three, "c.SC5"},
        Row{kPrevious, "a.SC5", three, "c.SC5"}, Row{kPrevious, "c.SC5", three, "b.SC5"},
        Row{kFirst, "b.SC5", three, "c.SC5"}, Row{kLast, "c.SC5", three, "b.SC5"},
        Row{kNext, "b.SC5", "c.SC5 a.SC5 x.SC5", "a.SC5"}, // deleted itself: taken for the first
        Row{kNext, "a.SC5", "A.SC5 c.SC5 b.SC5", "c.SC5"}, // a name in other letters is another
        Row{kNext, "a.SC5", "a.SC5 x.TXT y.SC3 z SC5.bmp b.sc6", "b.sc6"}, Row{kNext, "a.SC5", "", "a.SC5"},
        // A file that was ignored, beside the one before, with a shorter path, listed, or in a deeper folder.
        Row{kNext, "a longer name.TXT", three, "a.SC5"}, Row{kNext, "x", three, "a.SC5"},
        Row{kNext, "SR5", "c.SC5 SR5 b.SC5", "b.SC5"}, Row{kNext, "e\\.TXT", three, "a.SC5"}}) {
    SCOPED_TRACE(std::to_string(key) + " at " + current + " of " + left);
    FolderViewer window(three);
    openPath(window.viewer, "d\\c.SC5");
    openPath(window.viewer, "d\\" + current);
    listing = wordsOf(left);
    window.viewer.activity = Activity::kLoading;
    EXPECT_TRUE(pressKey(window.viewer, {key}) && window.viewer.folderFiles.empty()); // nothing is even listed
    window.viewer.activity = Activity::kIdle;
    EXPECT_TRUE(pressKey(window.viewer, {key}));
    EXPECT_EQ(window.viewer.filePath, std::string("d\\") + expected);
  }
}

TEST(FolderNavigation, OrderByNumber) {
  FolderViewer window("pic10.SC5 PIC2.SC5 PIC02.SC5 pic2a.SC5 PIC.SC5 \u00E9.SC5 10.SC5 9.SC5 PIC0.SC5");
  const std::vector<std::string> system = listing;
  openPath(window.viewer, "d\\PIC2.SC5");
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFiles, system);
  menuOrderByNumber_Click(window.viewer);
  openNextFile(window.viewer);
  EXPECT_EQ(window.viewer.folderFiles,
            wordsOf("9.SC5 10.SC5 PIC.SC5 PIC0.SC5 PIC02.SC5 PIC2.SC5 pic2a.SC5 pic10.SC5 \u00E9.SC5"));
  EXPECT_EQ(window.viewer.fileName, "pic2a.SC5");
}

TEST(FolderNavigation, TheList) {
  FolderViewer window("a.SC5 b.SC5 c.SC5");
  openPath(window.viewer, "d\\a.SC5");
  openNextFile(window.viewer);
  menuClose_Click(window.viewer);
  listing = {"a.SC5", "b.SC5", "new.SC5", "c.SC5"};
  openNextFile(window.viewer); // goes on with the list of before
  EXPECT_EQ(window.viewer.window.caption, "Korilan - c.SC5");
  listing = {"SR5", "q5 .G"}; // any part of the list of kinds
  for (const FileKind &kind : kFileKinds) listing.push_back(std::string("x") + kind.extension);
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFiles, listing);
  listing.assign(100'000, "x.SC5");
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFileCount, 32767); // as many as a signed word counts
}

} // namespace
