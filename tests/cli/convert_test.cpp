#include "cli/convert.h"

#include "base/paths.h"
#include "cli/progress.h"
#include "core/bitmap_export.h"
#include "support/temporary_folder.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

namespace {

// What Save as Bitmap writes in a window that shows a frame of the file.
Bytes savedBitmap(const std::string &name, const Bytes &file, int32_t frame = 0) {
  TestViewer test;
  test.open(name, file);
  HScroll1_Change(test.viewer, frame);
  menuSaveBMP_Click(test.viewer);
  return memoryDisk()[bitmapPath(test.viewer)];
}

// Converts, and returns what is complained of.
std::string complaintOf(const CliRequest &request) {
  testing::internal::CaptureStderr();
  const bool converted = convertFiles(request);
  const std::string complaint = testing::internal::GetCapturedStderr();
  EXPECT_EQ(converted, complaint.empty());
  return complaint;
}

TEST(CliConvert, WritesFramesAsSaveAsBitmapDoes) {
  const TemporaryFolder folder("convert");
  const std::string film = folder.write(u8"城.EVA", evaFile(3));
  EXPECT_EQ(complaintOf({.frame = 1, .files = {film}}), "");
  EXPECT_EQ(folder.read(u8"城 - 0001.bmp"), savedBitmap("a.EVA", evaFile(3), 1));
  EXPECT_EQ(complaintOf({.frame = 3, .files = {film}}), film + ": has no frame 3\n");
  EXPECT_EQ(folder.fileCount(), 2U);
  EXPECT_EQ(complaintOf({.allFrames = true, .files = {film}}), "");
  EXPECT_EQ(folder.fileCount(), 4U);
}

TEST(CliConvert, WritesPortablePixmapsAsShown) {
  const TemporaryFolder folder("shown");
  const std::string path = folder.write(u8"a.SC8", kScreen8File), header = "P6\n512 424\n255\n";
  EXPECT_EQ(complaintOf({.shown = true, .format = ImageFormat::kPpm, .files = {path}}), "");
  Bytes expected(header.begin(), header.end());
  for (int i = 0; i < 512 * 424; ++i) { // the first pixel is doubled both ways
    expected.insert(expected.end(), {uint8_t(i % 512 < 2 && i / 512 < 2 ? 252 : 0), 0, 0});
  }
  EXPECT_TRUE(folder.read(u8"a.ppm") == expected);
}

TEST(CliConvert, BadFilesDoNotStopTheOthers) {
  const TemporaryFolder folder("bad"), other("bad_other"), target("bad_target");
  const Bytes black{0xFE, 0, 0, 0xFF, 0xD3, 0, 0};
  // A refused file takes no name from a good one.
  const std::string refused = folder.write(u8"a.SC8", {'A', 'B'}), good = folder.write(u8"b.SC8", kScreen8File),
                    second = other.write(u8"b.PIC", black), third = folder.write(u8"a.PIC", black);
  EXPECT_EQ(complaintOf({.outDirectory = target.path, .jobs = 1, .files = {refused, good, second, third}}),
            refused + ": *** Error: Not a valid .SC8 file.\n" + second + ": its picture would replace that of " + good +
                "\n");
  EXPECT_EQ(target.fileCount(), 2U);
  EXPECT_EQ(target.read(u8"b.bmp"), savedBitmap("a.SC8", kScreen8File));
  // No way of writing its path lets a file replace itself.
  EXPECT_EQ(complaintOf({.outPath = folder.path + "." + folder.path.back() + "b.SC8", .files = {good}}),
            good + ": its picture would replace the file itself\n");
  EXPECT_NE(complaintOf({.outDirectory = folder.path + "missing", .files = {good}}), "");
}

TEST(CliConvert, ProgressFitsALine) {
  const std::string name(104, 'n');
  EXPECT_EQ(progressLine(12, 100, "城/" + name + ".SC5"), "[12/100] " + name.substr(0, 66) + ".SC5"); // 79 letters
}

} // namespace
