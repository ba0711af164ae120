// Disk images in the window: opening, paging, and the names of what is saved.
#include "base/disk_files.h"
#include "core/bitmap_export.h"
#include "core/following.h"
#include "core/image_info.h"
#include "disk_image_maker.h"
#include "support/temporary_folder.h"
#include "support/test_viewer.h"

namespace {

const Bytes kScreen = BloadBuilder{.body = {0x1F, 0x23}}.build();

struct DiskViewer : TestViewer {
  TemporaryFolder folder{"disks"};
  char separator = folder.path.back();

  DiskViewer() {
    viewer.platform.files = &filesWithDisks();
    folder.write(u8"PLAIN.SC5", kScreen);
    folder.write(u8"B.DSK", samples::makeDiskImage({}, {{"SC", {1}},
                                                        {"P10.SC5", kScreen},
                                                        {"README.TXT", {1}},
                                                        {"P2.SC7", kScreen},
                                                        {"ART/C:D.SC5", kScreen},
                                                        {"BAD/E.G9B", {0}}}));
    folder.write(u8"C.di1", samples::makeDiskImage({}, {{"README.TXT", {1}}}));
    folder.write(u8"D.720", {1, 2, 3});
    std::filesystem::create_directory(folder.path + "E.DSK");
  }

  // "P10.SC5 shown": the path below the folder, and the error or whether it is shown.
  std::string now() const {
    std::string path = viewer.filePath.substr(folder.path.size());
    std::replace(path.begin(), path.end(), '\\', '/');
    return path + " " + (viewer.loadError.empty() ? "shown" : viewer.loadError);
  }

  std::string press(int key, bool ctrl = false) {
    pressKey(viewer, {key, ctrl});
    return now();
  }
};

TEST(Disks, OpenLikeFolders) {
  constexpr int kPageUp = 33, kPageDown = 34;
  DiskViewer window;
  const std::string &folder = window.folder.path;
  openPath(window.viewer, folder + "B.DSK");
  EXPECT_EQ(window.now(), "B.DSK/P10.SC5 shown");
  EXPECT_EQ(window.viewer.window.caption, "Korilan - P10.SC5");
  EXPECT_NE(imageInfo(window.viewer).find("Folder:\t" + folder + "B.DSK" + window.separator + "\n"), std::string::npos);
  EXPECT_EQ(followedFolder(window.viewer) + followedNames(window.viewer)[0], folder + "B.DSK");
  EXPECT_EQ(window.viewer.recentFiles.size(), 1U);
  for (const char *next : {"B.DSK/P2.SC7 shown", "B.DSK/ART/C\u2236D.SC5 shown",
                           "B.DSK/BAD/E.G9B *** Error: Not a valid .G9B file.", "B.DSK/P10.SC5 shown"}) {
    EXPECT_EQ(window.press(kPageDown), next);
  }
  window.viewer.display.orderByNumber = true;
  openPath(window.viewer, folder + "B.DSK");
  EXPECT_EQ(window.now(), "B.DSK/P2.SC7 shown");
  EXPECT_EQ(window.press(kPageDown), "B.DSK/P10.SC5 shown");
  EXPECT_EQ(window.press(kPageDown), "B.DSK/ART/C\u2236D.SC5 shown");
  EXPECT_EQ(bitmapPath(window.viewer), folder + "B ART C\u2236D.bmp");

  EXPECT_EQ(window.press(kPageDown, true), "C.di1 *** Error: No pictures on this disk.");
  EXPECT_EQ(window.viewer.window.caption, "Korilan - C.di1");
  EXPECT_EQ(window.viewer.picturePath, folder + "B.DSK" + window.separator + "ART" + window.separator + "C\u2236D.SC5");
  EXPECT_EQ(window.press(kPageDown, true), "D.720 *** Error: Not a valid .720 file.");
  EXPECT_EQ(window.press(kPageDown, true), "B.DSK/P2.SC7 shown");
  EXPECT_EQ(window.press(kPageUp, true), "D.720 *** Error: Not a valid .720 file.");
  openPath(window.viewer, folder + "E.DSK"); // a folder is ignored
  EXPECT_EQ(window.viewer.window.caption, "Korilan - D.720");
  openPath(window.viewer, folder + "E.DSK" + window.separator + ".." + window.separator + "PLAIN.SC5");
  EXPECT_EQ(savingPath(window.viewer.filePath), window.viewer.filePath);
  openPath(window.viewer, folder + "PLAIN.SC5");
  EXPECT_EQ(window.press(kPageDown, true), "PLAIN.SC5 shown");
  EXPECT_EQ(bitmapPath(window.viewer), folder + "PLAIN.bmp");
}

TEST(Disks, AChangedImageIsFollowedByTheShownFile) {
  DiskViewer window;
  openPath(window.viewer, window.folder.path + "B.DSK");
  const auto follow = [&window](const Bytes &image) {
    const auto before = window.viewer.window.pictureSerial;
    window.folder.write(u8"B.DSK", image);
    noteFileChange(window.viewer);
    window.platform.ticks += 1000;
    followFile(window.viewer);
    return window.viewer.window.pictureSerial != before;
  };
  Bytes other = kScreen;
  other[7] = 0xFF;
  follow(samples::makeDiskImage({}, {{"P10.SC5", kScreen}})); // the first look may come before the clock shows a change
  EXPECT_FALSE(follow(samples::makeDiskImage({}, {{"SC", {1}}, {"P10.SC5", kScreen}, {"NEW.SC5", other}})));
  EXPECT_TRUE(follow(samples::makeDiskImage({}, {{"NEW.SC5", other}, {"P10.SC5", other}})));
  EXPECT_EQ(window.now(), "B.DSK/P10.SC5 shown");
  EXPECT_FALSE(follow({}));
}

} // namespace
