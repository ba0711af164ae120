#include "core/folder_navigation.h"

#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

using Paging = void (*)(ViewerState &viewer);

// What every folder lists, in this order, whatever the disk holds.
thread_local std::vector<std::string> listing;

struct FolderViewer : TestViewer {
  FileOps files = memoryFiles();

  FolderViewer(std::vector<std::string> names, const std::string &current) {
    files.listFolder = [](const char *) { return listing; };
    viewer.platform.files = &files;
    for (const std::string &name : names) memoryDisk()["d\\" + name] = BloadBuilder{}.build();
    listing = std::move(names);
    openPath(viewer, "d\\" + current);
    platform.log.clear();
  }
};

TEST(FolderNavigation, WhichFileIsOpened) {
  using Row = std::tuple<const char *, Paging, const char *, const char *, const char *, const char *>;
  const char *three = "c.SC5 a.SC5 b.SC5";                        // the order of the system, not that of the letters
  for (const auto &[name, page, files, current, left, expected] : // what is left in the folder when the key is pressed
       {Row{"next", openNextFile, three, "c.SC5", three, "a.SC5"},
        Row{"next wraps", openNextFile, three, "b.SC5", three, "c.SC5"},
        Row{"previous", openPreviousFile, three, "b.SC5", three, "a.SC5"},
        Row{"previous wraps", openPreviousFile, three, "c.SC5", three, "b.SC5"},
        Row{"first", openFirstFile, three, "b.SC5", three, "c.SC5"},
        Row{"last", openLastFile, three, "c.SC5", three, "b.SC5"},
        Row{"the neighbour was deleted", openNextFile, three, "c.SC5", "c.SC5 b.SC5", "b.SC5"},
        Row{"new neighbour", openNextFile, three, "c.SC5", "c.SC5 new.SC6 a.SC5", "new.SC6"},
        Row{"deleted itself: taken for the first", openNextFile, three, "b.SC5", "c.SC5 a.SC5 x.SC5", "a.SC5"},
        Row{"name in other letters is another", openNextFile, three, "a.SC5", "A.SC5 c.SC5 b.SC5", "c.SC5"},
        Row{"unknown kinds are skipped", openNextFile, "a.SC5", "a.SC5", "a.SC5 x.TXT y.SC3 z SC5.bmp b.sc6", "b.sc6"},
        Row{"empty folder", openNextFile, "a.SC5", "a.SC5", "", "a.SC5"}}) {
    SCOPED_TRACE(name);
    FolderViewer window(wordsOf(files), current);
    listing = wordsOf(left);
    page(window.viewer);
    EXPECT_EQ(window.viewer.filePath, std::string("d\\") + expected);
  }
}

TEST(FolderNavigation, ListedByAnyPartOfTheListOfKinds) {
  FolderViewer window({"a.SC5", "x.TXT", "q5 .G", "SR5"}, "a.SC5");
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFiles, (std::vector<std::string>{"a.SC5", "q5 .G", "SR5"}));
}

TEST(FolderNavigation, AFileThatVanishesAfterTheListingIsRefused) {
  FolderViewer window({"a.SC5", "b.SC5", "c.SC5"}, "a.SC5");
  memoryDisk().erase("d\\b.SC5");
  openNextFile(window.viewer);
  EXPECT_EQ(window.viewer.window.caption, "Korilan - b.SC5");
  EXPECT_EQ(window.viewer.window.Label4, "*** Error: Not a valid .SC5 file.");
  openNextFile(window.viewer); // and paging goes on
  EXPECT_EQ(window.viewer.window.caption, "Korilan - c.SC5");
  EXPECT_EQ(window.viewer.window.Label4, "");
}

TEST(FolderNavigation, AfterClose) {
  FolderViewer neverPaged({"a.SC5", "b.SC5"}, "a.SC5");
  menuClose_Click(neverPaged.viewer);
  openNextFile(neverPaged.viewer); // there is no list
  EXPECT_EQ(neverPaged.viewer.window.caption, "Korilan");
  FolderViewer window({"a.SC5", "b.SC5", "c.SC5"}, "a.SC5");
  openNextFile(window.viewer);
  menuClose_Click(window.viewer);
  listing = {"a.SC5", "b.SC5", "new.SC5", "c.SC5"};
  openNextFile(window.viewer); // goes on with the list of before
  EXPECT_EQ(window.viewer.window.caption, "Korilan - c.SC5");
}

TEST(FolderNavigation, CaptionThatDoesNotFitThePath) {
  for (const char *dropped :
       {"x", "t.TXT", "d\\a much longer name than that.TXT", "other\\t.TXT", "d\\abc\\t4567.TXT"}) {
    SCOPED_TRACE(dropped);
    FolderViewer window({"long name.SC5", "b.SC5"}, "long name.SC5");
    openPath(window.viewer, dropped);
    openNextFile(window.viewer);
    EXPECT_EQ(window.viewer.window.caption, "Korilan - long name.SC5");
    EXPECT_EQ(window.viewer.filePath, dropped);
    EXPECT_EQ(window.platform.log, std::vector<std::string>{});
  }
}

TEST(FolderNavigation, DoesNothingWhileAVideoPlaysOrALoadRuns) {
  for (const char *name : {"one player", "the other", "a load"}) {
    SCOPED_TRACE(name);
    FolderViewer window({"b.SC5", "a.SC5", "c.SC5"}, "a.SC5");
    window.viewer.evaPlayer.playing = toFlag(name == std::string("one player"));
    window.viewer.vidPlayer.playing = toFlag(name == std::string("the other"));
    window.viewer.loadUnderWay = name == std::string("a load");
    openNextFile(window.viewer);
    EXPECT_EQ(window.viewer.filePath, "d\\a.SC5");
    EXPECT_TRUE(window.viewer.folderFiles.empty()); // not even listed
  }
}

} // namespace
