#include "core/folder_navigation.h"

#include "core/file_kinds.h"
#include "support/bytes.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

// What every folder lists, in this order, whatever the disk holds.
thread_local Names listing;

struct FolderViewer : TestViewer {
  FileOps files = memoryFiles();

  FolderViewer(const Names &names, const std::string &current) {
    files.listFolder = [](const char *) { return listing; };
    viewer.platform.files = &files;
    for (const std::string &name : names) memoryDisk()["d\\" + name] = BloadBuilder{}.build();
    listing = names;
    openPath(viewer, "d\\" + current);
    platform.log.clear();
  }
};

TEST(FolderNavigation, WhichFileIsOpened) {
  struct Row {
    const char *name;
    void (*page)(ViewerState &viewer);
    const char *files, *current, *left, *expected; // what is left in the folder when the key is pressed
  };
  const char *three = "c.SC5 a.SC5 b.SC5"; // the order of the system, not that of the letters
  for (const auto &[name, page, files, current, left, expected] :
       {Row{"next", openNextFile, three, "c.SC5", three, "a.SC5"},
        Row{"next wraps", openNextFile, three, "b.SC5", three, "c.SC5"},
        Row{"previous", openPreviousFile, three, "a.SC5", three, "c.SC5"},
        Row{"previous wraps", openPreviousFile, three, "c.SC5", three, "b.SC5"},
        Row{"first", openFirstFile, three, "b.SC5", three, "c.SC5"},
        Row{"last", openLastFile, three, "c.SC5", three, "b.SC5"},
        Row{"the neighbour was deleted", openNextFile, three, "c.SC5", "c.SC5 b.SC5", "b.SC5"},
        Row{"deleted itself: taken for the first", openNextFile, three, "b.SC5", "c.SC5 a.SC5 x.SC5", "a.SC5"},
        Row{"name in other letters is another", openNextFile, three, "a.SC5", "A.SC5 c.SC5 b.SC5", "c.SC5"},
        Row{"unknown kinds are skipped", openNextFile, "a.SC5", "a.SC5", "a.SC5 x.TXT y.SC3 z SC5.bmp b.sc6", "b.sc6"},
        Row{"empty folder", openNextFile, "a.SC5", "a.SC5", "", "a.SC5"}}) {
    SCOPED_TRACE(name);
    FolderViewer window(wordsOf(files), current);
    window.viewer.vidPlayer.headerReady = kTrue;
    listing = wordsOf(left);
    page(window.viewer);
    EXPECT_EQ(window.viewer.filePath, std::string("d\\") + expected);
    EXPECT_EQ(window.viewer.vidPlayer.headerReady, kFalse);
  }
}

TEST(FolderNavigation, TheList) {
  FolderViewer window({"a.SC5", "x.TXT", "q5 .G", "SR5"}, "a.SC5");
  for (const Activity activity : {Activity::kLoading, Activity::kPlaying}) {
    window.viewer.activity = activity;
    openNextFile(window.viewer);
    EXPECT_TRUE(window.viewer.folderFiles.empty()); // nothing is even listed meanwhile
  }
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFiles, (Names{"a.SC5", "q5 .G", "SR5"})); // any part of the list of kinds
  EXPECT_EQ(window.viewer.folderPrefix, "d\\");
  listing.clear();
  for (const FileKind &kind : kFileKinds) listing.push_back(std::string("x") + kind.extension);
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFiles, listing);
  listing.assign(100'000, "x.SC5");
  rebuildFolderList(window.viewer);
  EXPECT_EQ(window.viewer.folderFileCount, 32767); // as many as a signed word counts
}

TEST(FolderNavigation, AfterClose) {
  FolderViewer window({"a.SC5", "b.SC5", "c.SC5"}, "a.SC5");
  menuClose_Click(window.viewer);
  openNextFile(window.viewer); // there is no list yet
  EXPECT_EQ(window.viewer.window.caption, "Korilan");
  openPath(window.viewer, "d\\a.SC5");
  openNextFile(window.viewer);
  menuClose_Click(window.viewer);
  listing = {"a.SC5", "b.SC5", "new.SC5", "c.SC5"};
  openNextFile(window.viewer); // goes on with the list of before
  EXPECT_EQ(window.viewer.window.caption, "Korilan - c.SC5");
}

TEST(FolderNavigation, CaptionThatDoesNotFitThePath) {
  for (const char *dropped : {"x", "t.TXT", "d\\a much longer name than that.TXT", "d\\abc\\t4567.TXT"}) {
    FolderViewer window({"long name.SC5", "b.SC5"}, "long name.SC5");
    openPath(window.viewer, dropped);
    openNextFile(window.viewer);
    EXPECT_EQ(window.viewer.filePath, dropped);
    EXPECT_EQ(window.platform.log, Names{}) << dropped;
  }
}

} // namespace
