#include "cli/convert.h"
#include "cli/progress.h"
#include "core/bitmap_export.h"
#include "core/dispatch.h"
#include "encoders.h"
#include "core/display_geometry.h"
#include "support/scarce_memory.h"
#include "support/temporary_folder.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

namespace {

using samples::Bytes;

// A Screen 8 file of one colour but for its first pixel.
Bytes screen8File(uint8_t colour) {
  Bytes pixels(54272, colour);
  pixels[0] = 0xFF;
  return samples::bloadFile(pixels, 0xD3FF);
}

// What Save as Bitmap writes for the same file in a window.
Bytes savedBitmap(const Bytes &file) {
  TestViewer test;
  test.open("picture.SC8", file);
  menuSaveBMP_Click(test.viewer);
  return memoryDisk()["picture.bmp"];
}

TEST(CliConvert, WritesWhatSaveAsBitmapWrites) {
  const TemporaryFolder folder("convert");
  const Bytes first = screen8File(0x03);
  const Bytes second = screen8File(0xE0);
  CliRequest request;
  request.command = CliCommand::kConvert;
  request.files = {folder.write(u8"first.SC8", first), folder.write(u8"城.Sc8", second)};
  EXPECT_TRUE(convertFiles(request));
  EXPECT_EQ(folder.read(u8"first.bmp"), savedBitmap(first));
  EXPECT_EQ(folder.read(u8"城.bmp"), savedBitmap(second));
  EXPECT_EQ(folder.fileCount(), 4U);
}

TEST(CliConvert, WritesPortablePixmapsAsShown) {
  const TemporaryFolder folder("shown");
  CliRequest request;
  request.command = CliCommand::kConvert;
  request.format = ImageFormat::kPpm;
  request.shown = true;
  request.files = {folder.write(u8"picture.SC8", screen8File(0x03))};
  EXPECT_TRUE(convertFiles(request));
  const Bytes file = folder.read(u8"picture.ppm");
  const std::string header = "P6\n512 424\n255\n";
  ASSERT_EQ(file.size(), header.size() + 512 * 424 * 3);
  EXPECT_EQ(std::string(file.begin(), file.begin() + std::ssize(header)), header);
  const auto pixel = [&](size_t x, size_t y) {
    const size_t at = header.size() + (y * 512 + x) * 3;
    return Bytes{file[at], file[at + 1], file[at + 2]};
  };
  EXPECT_EQ(pixel(1, 1), (Bytes{252, 252, 255})); // the first pixel, doubled both ways
  EXPECT_EQ(pixel(2, 0), (Bytes{0, 0, 255}));
  EXPECT_EQ(pixel(0, 2), (Bytes{0, 0, 255}));
}

TEST(CliConvert, BadFilesDoNotStopTheOthers) {
  const TemporaryFolder folder("bad");
  const TemporaryFolder target("bad_target");
  CliRequest request;
  request.command = CliCommand::kConvert;
  request.outDirectory = target.path;
  request.files = {folder.write(u8"dump.SCC", {'A', 'B'}), folder.path + "missing.SC5",
                   folder.write(u8"good.SC8", screen8File(0)),
                   folder.write(u8"good.PIC", screen8File(0xFF))}; // would become good.bmp as well
  EXPECT_FALSE(convertFiles(request));
  EXPECT_EQ(target.fileCount(), 1U);
  EXPECT_EQ(target.read(u8"good.bmp"), savedBitmap(screen8File(0)));

  // A refused file takes no name from a good one, and no way of writing its path lets a file replace itself.
  folder.write(u8"taken.SC8", {'A', 'B'});
  request.files = {folder.path + "taken.SC8", folder.write(u8"taken.PIC", screen8File(0xFF))};
  EXPECT_FALSE(convertFiles(request));
  EXPECT_EQ(target.read(u8"taken.bmp"), savedBitmap(screen8File(0xFF)));
  request.files = {folder.path + "good.SC8"};
  request.outDirectory.clear();
  request.outPath = folder.path + "." + folder.path.back() + "good.SC8";
  EXPECT_FALSE(convertFiles(request));
  EXPECT_EQ(folder.read(u8"good.SC8"), screen8File(0));
  request.outPath.clear();

  request.outDirectory = folder.path + "missing";
  EXPECT_FALSE(convertFiles(request));
}

TEST(CliConvert, WithoutMemoryForThePictureThereIsNoFile) {
  const TemporaryFolder folder("lacking");
  CliRequest request;
  request.command = CliCommand::kConvert;
  // 1000 x 600 pixels of 16 bits, all black
  request.files = {folder.write(u8"big.G9B", {'G', '9', 'B', 11, 0, 16, 0, 0, 0xE8, 3, 0x58, 2, 0, 0, 0, 0})};
  for (const ImageFormat format : {ImageFormat::kBmp, ImageFormat::kPpm}) {
    for (const bool shown : {false, true}) {
      request.format = format;
      request.shown = shown;
      const int blocks = shown ? 3 : 2; // video memory, frame, frame as shown
      for (int block = 0; block <= blocks; ++block) {
        SCOPED_TRACE(block);
        scarceMemory() = {.refusedBlock = block};
        EXPECT_EQ(convertFiles(request), block == 0);
        EXPECT_EQ(scarceMemory().largeBlocks, block == 0 ? blocks : block);
        scarceMemory() = {};
        EXPECT_EQ(folder.fileCount(), block == 0 ? 2U : 1U);
        std::error_code error;
        std::filesystem::remove(folder.path + (format == ImageFormat::kBmp ? "big.bmp" : "big.ppm"), error);
      }
    }
  }
}

TEST(CliConvert, ProgressFitsALine) {
  EXPECT_EQ(progressLine(12, 100, std::string("城") + kFolderSeparators.back() + "REEF.SC5"), "[12/100] REEF.SC5");
  std::string name(104, 'n');
  std::string cut(73, 'n');
  for (std::string *text : {&name, &cut}) text->replace(text->size() - 4, 4, ".SC5");
  const std::string line = progressLine(3, 3, name);
  EXPECT_EQ(line.size(), 79U);
  EXPECT_EQ(line.substr(0, 6), "[3/3] ");
  EXPECT_EQ(line.substr(6), cut);
}

} // namespace
