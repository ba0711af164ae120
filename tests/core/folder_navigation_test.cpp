#include "core/folder_navigation.h"

#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>

namespace {

using Paging = void (*)(ViewerState &viewer);

constexpr Paging kAllPaging[] = {openNextFile, openPreviousFile, openFirstFile, openLastFile};

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
  struct Row {
    const char *name;
    Paging page;
    const char *files, *current;
    const char *left; // what the folder still lists when the key is pressed
    const char *expected;
  };
  const char *three = "c.SC5 a.SC5 b.SC5"; // the order of the system, not that of the letters
  for (const Row &row :
       {Row{"next", openNextFile, three, "c.SC5", three, "a.SC5"},
        Row{"next wraps", openNextFile, three, "b.SC5", three, "c.SC5"},
        Row{"previous", openPreviousFile, three, "b.SC5", three, "a.SC5"},
        Row{"previous wraps", openPreviousFile, three, "c.SC5", three, "b.SC5"},
        Row{"first", openFirstFile, three, "b.SC5", three, "c.SC5"},
        Row{"last", openLastFile, three, "c.SC5", three, "b.SC5"},
        Row{"the neighbour was deleted", openNextFile, three, "c.SC5", "c.SC5 b.SC5", "b.SC5"},
        Row{"new neighbour", openNextFile, three, "c.SC5", "c.SC5 new.SC6 a.SC5", "new.SC6"},
        Row{"deleted itself: taken for the first", openNextFile, three, "b.SC5", "c.SC5 a.SC5 x.SC5", "a.SC5"},
        Row{"deleted itself, previous", openPreviousFile, three, "a.SC5", "c.SC5 b.SC5", "b.SC5"},
        Row{"name in other letters is another", openNextFile, three, "a.SC5", "A.SC5 c.SC5 b.SC5", "c.SC5"},
        Row{"unknown kinds are skipped", openNextFile, "a.SC5", "a.SC5", "a.SC5 x.TXT y.SC3 z SC5.bmp b.sc6", "b.sc6"},
        Row{"empty folder", openNextFile, "a.SC5", "a.SC5", "", "a.SC5"},
        Row{"no known kind", openLastFile, "a.SC5", "a.SC5", "x.TXT", "a.SC5"}}) {
    SCOPED_TRACE(row.name);
    FolderViewer window(wordsOf(row.files), row.current);
    listing = wordsOf(row.left);
    row.page(window.viewer);
    EXPECT_EQ(window.viewer.filePath, std::string("d\\") + row.expected);
  }
}

TEST(FolderNavigation, TheOnlyFileIsReadAnew) {
  FolderViewer window({"a.SC5"}, "a.SC5");
  openNextFile(window.viewer);
  EXPECT_EQ(window.platform.log, (std::vector<std::string>{"runPendingEvents", "presentPicture 256x212"}));
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
  for (const Paging page : kAllPaging) {
    FolderViewer neverPaged({"a.SC5", "b.SC5"}, "a.SC5");
    menuClose_Click(neverPaged.viewer);
    page(neverPaged.viewer); // there is no list
    EXPECT_EQ(neverPaged.viewer.window.caption, "Korilan");
  }
  FolderViewer window({"a.SC5", "b.SC5", "c.SC5"}, "a.SC5");
  openNextFile(window.viewer);
  menuClose_Click(window.viewer);
  listing = {"a.SC5", "b.SC5", "new.SC5", "c.SC5"};
  openNextFile(window.viewer); // goes on with the list of before
  EXPECT_EQ(window.viewer.window.caption, "Korilan - c.SC5");
}

TEST(FolderNavigation, CaptionThatDoesNotFitThePath) {
  for (const char *dropped : {"x", "t.TXT", "d\\a much longer name than that.TXT", "other\\t.TXT"}) {
    for (const Paging page : kAllPaging) {
      SCOPED_TRACE(dropped);
      FolderViewer window({"long name.SC5", "b.SC5"}, "long name.SC5");
      openPath(window.viewer, dropped);
      page(window.viewer);
      EXPECT_EQ(window.viewer.window.caption, "Korilan - long name.SC5");
      EXPECT_EQ(window.viewer.filePath, dropped);
      EXPECT_EQ(window.platform.log, std::vector<std::string>{});
    }
  }
}

TEST(FolderNavigation, DoesNothingWhileAVideoPlaysOrALoadRuns) {
  struct Row {
    const char *name;
    void (*prepare)(ViewerState &viewer);
  };
  for (const Row &row : {Row{"one player", [](ViewerState &viewer) { viewer.evaPlayer.playing = kTrue; }},
                         Row{"the other", [](ViewerState &viewer) { viewer.vidPlayer.playing = kTrue; }},
                         Row{"a load", [](ViewerState &viewer) { viewer.loadUnderWay = true; }}}) {
    SCOPED_TRACE(row.name);
    for (const Paging page : kAllPaging) {
      FolderViewer window({"b.SC5", "a.SC5", "c.SC5"}, "a.SC5");
      row.prepare(window.viewer);
      page(window.viewer);
      EXPECT_EQ(window.viewer.filePath, "d\\a.SC5");
      EXPECT_TRUE(window.viewer.folderFiles.empty()); // not even listed
    }
  }
}

} // namespace
