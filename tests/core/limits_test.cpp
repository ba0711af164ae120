// Folders, names and files that are larger than any real one.
#include "core/folder_navigation.h"
#include "core/image_info.h"
#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "video/video_mode.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(Limits, FolderOfAHundredThousandFiles) {
  constexpr int kFiles = 100'000;
  TestViewer window;
  FileOps files = memoryFiles();
  files.listFolder = [](const char *) {
    std::vector<std::string> names;
    for (int i = 0; i < kFiles; ++i) names.push_back(std::to_string(kFiles + i) + (i % 2 == 0 ? ".SC5" : ".TXT"));
    return names;
  };
  window.viewer.platform.files = &files;
  const auto picture = BloadBuilder{}.build();
  for (const char *name : {"100000.SC5", "100002.SC5", "165532.SC5"}) memoryDisk()[name] = picture;
  openPath(window.viewer, "100000.SC5");
  openNextFile(window.viewer);
  EXPECT_EQ(window.viewer.window.caption, "Korilan - 100002.SC5");
  // The list holds as many files as a 16-bit number counts; its last one is the 32,767th.
  openLastFile(window.viewer);
  EXPECT_EQ(window.viewer.window.caption, "Korilan - 165532.SC5");
  EXPECT_EQ(window.viewer.folderFileCount, 32767);
  openNextFile(window.viewer);
  EXPECT_EQ(window.viewer.window.caption, "Korilan - 100000.SC5");
}

TEST(Limits, NameOfThirtyTwoThousandCharacters) {
  const std::string path = "folder\\" + std::string(32'000, 'n') + ".SC5";
  TestViewer window;
  window.open(path, BloadBuilder{}.build());
  EXPECT_EQ(window.viewer.pictureShown, kTrue);
  openNextFile(window.viewer);
  EXPECT_EQ(window.viewer.window.caption.size(), 32'000 + std::string("Korilan - .SC5").size());
  EXPECT_NE(imageInfo(window.viewer).find(std::string(32'000, 'n')), std::string::npos);
}

TEST(Limits, VideoOfFourGibibytes) {
  constexpr int64_t kBytes = int64_t{4} << 30;
  TestViewer window;
  FileOps files = memoryFiles();
  files.openForReading = [](const char *) -> FileHandle { return memoryDisk().begin()->second.data(); };
  files.length = [](FileHandle) { return kBytes; };
  // Every byte is the number of its block; the rate stands where it belongs.
  files.readAt = [](FileHandle, int64_t offset, uint8_t *into, size_t count) {
    for (size_t i = 0; i < count; ++i) {
      const int64_t at = offset + static_cast<int64_t>(i);
      into[i] = at == 15359 ? 5 : static_cast<uint8_t>(at / 15360);
    }
    return count;
  };
  memoryDisk()["a"] = {0};
  window.viewer.platform.files = &files;
  openPath(window.viewer, "a.EVA");
  EXPECT_EQ(window.viewer.evaPlayer.frameCount, 279620); // 279620.27 blocks
  HScroll1_Change(window.viewer, 279619);
  EXPECT_EQ(window.viewer.window.Label4, "Frame: 279619");
  EXPECT_EQ(window.viewer.evaPlayer.videoRing[279619 % 12 * 13568], 279619 % 256);
}

} // namespace
