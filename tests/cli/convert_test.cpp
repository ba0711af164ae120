#include "cli/convert.h"

#include "base/paths.h"
#include "support/temporary_folder.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

namespace {

// Converts, and returns what is complained of.
std::string complaintOf(const CliRequest &request) {
  testing::internal::CaptureStderr();
  const bool converted = convertFiles(request);
  const std::string complaint = testing::internal::GetCapturedStderr();
  EXPECT_EQ(converted, complaint.empty());
  return complaint;
}

TEST(CliConvert, WritesFrames) {
  const TemporaryFolder folder("convert");
  const std::string film = folder.write(u8"城.EVA", evaFile(3));
  EXPECT_EQ(complaintOf({.frame = 1, .files = {film}}), "");
  EXPECT_EQ(folder.read(u8"城 - 0001.bmp").back(), 0x10);
  EXPECT_EQ(complaintOf({.frame = 3, .files = {film}}), film + ": has no frame 3\n");
  EXPECT_EQ(complaintOf({.allFrames = true, .files = {film}}), "");
  EXPECT_EQ(folder.fileCount(), 4U);
}

TEST(CliConvert, WritesPortablePixmapsAsShown) {
  const TemporaryFolder folder("shown");
  const std::string path = folder.write(u8"a.SC8", kScreen8File), red("\xFC\0\0", 3), black(510 * 3, '\0');
  EXPECT_EQ(complaintOf({.shown = true, .format = ImageFormat::kPpm, .files = {path}}), "");
  const std::string row = red + red + black, rest(422 * 512 * 3, '\0'), all = "P6\n512 424\n255\n" + row + row + rest;
  EXPECT_TRUE(folder.read(u8"a.ppm") == Bytes(all.begin(), all.end()));
}

TEST(CliConvert, BadFilesDoNotStopTheOthers) {
  const TemporaryFolder folder("bad"), other("bad_other"), target("bad_target");
  // A refused file takes no name from a good one.
  const std::string refused = folder.write(u8"a.SC8", {'A', 'B'}), good = folder.write(u8"b.SC8", kScreen8File),
                    second = other.write(u8"b.PIC", kScreen8File), third = folder.write(u8"a.PIC", kScreen8File);
  EXPECT_EQ(complaintOf({.outDirectory = target.path, .jobs = 1, .files = {refused, good, second, third}}),
            refused + ": *** Error: Not a valid .SC8 file.\n" + second + ": its picture would replace that of " + good +
                "\n");
  EXPECT_EQ(target.fileCount(), 2U);
  // No way of writing its path lets a file replace itself.
  EXPECT_EQ(complaintOf({.outPath = folder.path + "." + folder.path.back() + "b.SC8", .files = {good}}),
            good + ": its picture would replace the file itself\n");
}

} // namespace
