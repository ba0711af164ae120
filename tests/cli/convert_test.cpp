#include "cli/convert.h"

#include "base/paths.h"
#include "cli/progress.h"
#include "core/bitmap_export.h"
#include "support/temporary_folder.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

namespace {

// A Screen 8 file of one colour but for its first pixel.
Bytes screen8File(uint8_t colour) {
  Bytes file = kScreen8File;
  file.resize(7 + 256 * 212, colour);
  return file;
}

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

TEST(CliConvert, WritesWhatSaveAsBitmapWrites) {
  const TemporaryFolder folder("convert");
  const std::string picture = folder.write(u8"城.Sc8", screen8File(0x03)),
                    film = folder.write(u8"film.EVA", evaFile(3));
  EXPECT_EQ(complaintOf({.files = {picture}}), "");
  EXPECT_EQ(folder.read(u8"城.bmp"), savedBitmap("a.SC8", screen8File(0x03)));
  EXPECT_EQ(complaintOf({.frame = 1, .files = {film}}), "");
  EXPECT_EQ(folder.read(u8"film - 0001.bmp"), savedBitmap("a.EVA", evaFile(3), 1));
  EXPECT_EQ(complaintOf({.frame = 3, .files = {film}}), film + ": has no frame 3\n");
  EXPECT_EQ(folder.fileCount(), 4U);
  EXPECT_EQ(complaintOf({.allFrames = true, .files = {film}}), "");
  EXPECT_EQ(folder.fileCount(), 6U);
}

TEST(CliConvert, WritesPortablePixmapsAsShown) {
  const TemporaryFolder folder("shown");
  const std::string path = folder.write(u8"a.SC8", screen8File(0x03)), header = "P6\n512 424\n255\n";
  EXPECT_EQ(complaintOf({.shown = true, .format = ImageFormat::kPpm, .files = {path}}), "");
  Bytes expected(header.begin(), header.end());
  for (int i = 0; i < 512 * 424; ++i) { // the first pixel is doubled both ways
    const bool first = i % 512 < 2 && i / 512 < 2;
    expected.insert(expected.end(), {uint8_t(first ? 252 : 0), 0, uint8_t(first ? 0 : 255)});
  }
  EXPECT_TRUE(folder.read(u8"a.ppm") == expected);
}

TEST(CliConvert, BadFilesDoNotStopTheOthers) {
  const TemporaryFolder folder("bad"), other("bad_other"), target("bad_target");
  // A refused file takes no name from a good one.
  const std::string refused = folder.write(u8"a.SC8", {'A', 'B'}), missing = folder.path + "c.SC5",
                    good = folder.write(u8"b.SC8", screen8File(0)), second = other.write(u8"b.PIC", screen8File(1)),
                    third = folder.write(u8"a.PIC", screen8File(2));
  EXPECT_EQ(complaintOf({.outDirectory = target.path, .jobs = 1, .files = {refused, missing, good, second, third}}),
            refused + ": *** Error: Not a valid .SC8 file.\n" + missing + ": *** Error: Not a valid .SC5 file.\n" +
                second + ": its picture would replace that of " + good + "\n");
  EXPECT_EQ(target.fileCount(), 2U);
  EXPECT_EQ(target.read(u8"b.bmp"), savedBitmap("a.SC8", screen8File(0)));
  // No way of writing its path lets a file replace itself.
  EXPECT_EQ(complaintOf({.outPath = folder.path + "." + folder.path.back() + "b.SC8", .files = {good}}),
            good + ": its picture would replace the file itself\n");
  EXPECT_NE(complaintOf({.outDirectory = folder.path + "missing", .files = {good}}), "");
}

TEST(CliConvert, ProgressFitsALine) {
  const std::string name(104, 'n');
  EXPECT_EQ(progressLine(12, 100, std::string("城") + kFolderSeparators.back() + "REEF.SC5"), "[12/100] REEF.SC5");
  EXPECT_EQ(progressLine(3, 3, name + ".SC5"), "[3/3] " + name.substr(0, 69) + ".SC5"); // 79 letters
}

} // namespace
