// The files opened last.
#include "core/recent.h"

#include "support/test_viewer.h"

namespace {

const Bytes kPicture = BloadBuilder{}.build();

// The items of the submenu, and the stored value.
std::string recentText(const TestViewer &window) {
  std::string text;
  for (const std::string &caption : window.viewer.window.recentFiles.captions) text += caption + ";";
  return text + window.platform.values.at("Recent");
}

TEST(Recent, AreTheFilesShownLast) {
  TestViewer window;
  EXPECT_FALSE(window.viewer.window.menuRecent.enabled);
  window.open("a & b.SC5", kPicture);
  window.open("c.SC5", kPicture);
  window.open("bad.SC5", {1});
  openPath(window.viewer, "x.TXT");
  EXPECT_EQ(recentText(window), "&1 c.SC5;&2 a && b.SC5;;&Clear;c.SC5|a & b.SC5");
  window.platform.values["Recent"] = "other.SC5||C.sc5"; // another window's
  menuReload_Click(window.viewer);
  window.open("a & b.SC5", kPicture);
  window.open("c.SC5", kPicture);
  EXPECT_EQ(recentText(window), "&1 c.SC5;&2 a && b.SC5;&3 other.SC5;;&Clear;c.SC5|a & b.SC5|other.SC5");
  chooseRecentFile(window.viewer, 1);
  EXPECT_EQ(window.viewer.filePath, "a & b.SC5");
  chooseRecentFile(window.viewer, 4);
  EXPECT_EQ(recentText(window), "");
  EXPECT_FALSE(window.viewer.window.menuRecent.enabled);
}

TEST(Recent, AreTenAndKept) {
  TestViewer window;
  const std::string folder(100, 'd');
  for (char letter = 'a'; letter < 'm'; ++letter) window.open(folder + letter + ".SC5", kPicture);
  const std::vector<std::string> captions = window.viewer.window.recentFiles.captions;
  ASSERT_EQ(captions.size(), 12u);
  EXPECT_EQ(captions[0], "&1 ..." + std::string(55, 'd') + "l.SC5");
  EXPECT_TRUE(captions[9].starts_with("&0 ") && captions[9].ends_with("c.SC5"));
  TestViewer next;
  next.platform.values = window.platform.values;
  startViewer(next.viewer, "");
  EXPECT_EQ(next.viewer.window.recentFiles.captions, captions);
}

TEST(Recent, TheFolderOfTheOpenFile) {
  TestViewer window;
  EXPECT_FALSE(window.viewer.window.menuShowInFolder.enabled);
  window.open("d\\a.SC5", kPicture);
  menuShowInFolder_Click(window.viewer);
  EXPECT_EQ(window.platform.log.back(), "showInFolder d\\a.SC5");
  window.open("lost.SC5", kPicture);
  menuShowInFolder_Click(window.viewer);
  EXPECT_EQ(window.platform.log.back(), "showMessage (!) Korilan: Could not show lost.SC5");
}

} // namespace
