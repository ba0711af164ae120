#include "cli/convert.h"

#include "support/temporary_folder.h"
#include "video/video_files.h"

namespace {

// Converts, and returns what is complained of.
std::string complaintOf(const CliRequest &request) {
  testing::internal::CaptureStderr();
  const bool converted = convertFiles(request, findInputs(request));
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
  std::filesystem::remove(std::filesystem::path(folder.path) / u8"城 - 0002.bmp");
  EXPECT_EQ(complaintOf({.allFrames = true, .noClobber = true, .files = {film}}),
            film.substr(0, film.size() - 4) + " - 0000.bmp: exists already\n");
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
  const TemporaryFolder folder("bad"), target("bad_target");
  const std::string refused = folder.write(u8"a.SC8", {'A', 'B'}), good = folder.write(u8"b.SC8", kScreen8File);
  const std::vector<std::string> files{refused, good, folder.write(u8"a.PIC", kScreen8File), target.path};
  EXPECT_EQ(complaintOf({.outDirectory = target.path + "new", .jobs = 1, .files = files}),
            refused + ": *** Error: Not a valid .SC8 file.\n" + target.path +
                ": is a folder; --recursive takes what is in it\n2 written, 2 not\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(target.path + "new"), {}), 2);
  // No way of writing its path lets a file replace itself.
  EXPECT_EQ(complaintOf({.outPath = folder.path + "." + folder.path.back() + "b.SC8", .files = {good}}),
            good + ": its picture would replace the file itself\n");
  target.write(u8"b.bmp", {1});
  EXPECT_EQ(complaintOf({.outDirectory = target.path, .noClobber = true, .files = {good}}),
            target.path + "b.bmp: exists already\n");
  EXPECT_EQ(target.read(u8"b.bmp"), Bytes{1});
}

TEST(CliConvert, PalettesAreTakenOrTheFileIsNot) {
  const TemporaryFolder folder("palette");
  Bytes colours(32);
  colours[0] = 0x70; // entry 0 is red
  const std::string whole = folder.write(u8"whole", colours), wrong = folder.write(u8"wrong", Bytes(32, 0xFF)),
                    cut = folder.write(u8"cut", Bytes(31)), missing = folder.path + "missing",
                    path = folder.write(u8"a.SC5", BloadBuilder{.body = Bytes(0x7680)}.build()),
                    plain = folder.write(u8"b.SC8", kScreen8File), out = folder.path + "out";
  for (const std::string &palette : {wrong, cut, missing}) {
    EXPECT_NE(complaintOf({.outPath = out, .palette = palette, .files = {path}}), "");
    EXPECT_EQ(folder.read(u8"out"), Bytes());
    EXPECT_EQ(complaintOf({.outPath = out + "2", .palette = palette, .files = {plain}}), "");
  }
  EXPECT_EQ(complaintOf({.outPath = out, .palette = whole, .files = {path}}), "");
  EXPECT_EQ(folder.read(u8"out").back(), 0xFF);
}

} // namespace
