// What loaders write the record with: labels, description, bytes of the file, video memory.
#include "state/labels.h"
#include "state/video_memory.h"
#include "support/bytes.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

namespace {

struct FileViewer : TestViewer {
  explicit FileViewer(const Bytes &file) {
    memoryDisk()["file"] = file;
    openInputFile(viewer.inputFile, memoryFiles(), "file");
  }
};

TEST(InputFile, IsReadByPositionWithZerosBeyondTheEnd) {
  FileViewer window({'V', 2, 0xFE, 0xFF});
  InputFile &file = window.viewer.inputFile;
  EXPECT_EQ(inputFileLength(file), 4);
  EXPECT_EQ(readByte(file, 1), 'V');
  EXPECT_EQ(readSignedWord(file, 3), -2);
  EXPECT_EQ(readWord(file, 3), 0xFFFE);
  EXPECT_EQ(readSignedWord(file, 4), 0xFF);
  EXPECT_TRUE(beginsWith(file, "V\x02") && !beginsWith(file, "W\x02") && !beginsWith(file, "VV"));
  for (const int position : {3, 5, 0}) {
    Bytes kept(3, 9), zeroed(3, 9);
    EXPECT_EQ(readAvailableBytes(file, position, kept), readBytes(file, position, zeroed));
    EXPECT_EQ(kept, position == 3 ? (Bytes{0xFE, 0xFF, 9}) : Bytes(3, 9));
    EXPECT_EQ(zeroed, position == 3 ? (Bytes{0xFE, 0xFF, 0}) : Bytes(3));
  }
  EXPECT_FALSE(openInputFile(file, memoryFiles(), "missing"));
  EXPECT_EQ(readByte(file, 1) + inputFileLength(file), 0);
}

TEST(VideoMemory, TakesWhatTheFileHasFromAPositionOn) {
  FileViewer window({1, 2, 3, 4});
  ViewerState &viewer = window.viewer;
  loadVram(viewer, 4, 3 << 20);
  EXPECT_EQ(viewer.window.Label4, "Loading...");
  EXPECT_EQ(bytesOf(viewer.vram), withBytesAt({4}, (3 << 20) - 1, {0}));
  std::ranges::fill(viewer.vram.written(6), uint8_t{9});
  overlayVram(viewer, 3);
  EXPECT_EQ(bytesOf(viewer.vram), withBytesAt({3, 4, 9, 9, 9, 9}, (1 << 20) - 1, {0}));
  loadVram(viewer, 9);
  EXPECT_EQ(bytesOf(viewer.vram), Bytes(1 << 20));
  std::ranges::fill(viewer.packedData.written(6), uint8_t{9});
  loadPackedData(viewer, 2, 2 << 20);
  EXPECT_EQ(viewer.window.Label4, "Depacking...");
  EXPECT_EQ(bytesOf(viewer.packedData), withBytesAt({2, 3, 4}, (2 << 20) - 1, {0}));
  viewer.vram.written(1)[0] = 9;
  clearVram(viewer, 2 << 20);
  EXPECT_EQ(bytesOf(viewer.vram), Bytes(2 << 20));
  viewer.vram.written(1)[0] = 9;
  clearMemory(viewer);
  EXPECT_EQ(bytesOf(viewer.vram), Bytes(1 << 20));
  EXPECT_EQ(bytesOf(viewer.packedData), Bytes(1 << 20));
}

TEST(VideoMemory, LargestPicture) {
  EXPECT_TRUE(pictureFits(64'000'000, 1) && pictureFits(8000, 8000) && pictureFits(0, 1 << 30) && pictureFits(99, -1));
  EXPECT_FALSE(pictureFits(8000, 8001) || pictureFits(8001, 8000) || pictureFits(1, 64'000'001));
}

TEST(Labels, TextsOfADescription) {
  struct Row {
    uint8_t bitsPerPixel, colourMode, colourCount;
    const char *text;
  };
  for (const Row &row :
       {Row{16, 0, 0, "32K colors"}, Row{8, 0x00, 64, "64 colors"}, Row{8, 0x40, 255, "256 colors"},
        Row{8, 0x80, 0, "YJK colors"}, Row{8, 0xC0, 0, "YUV colors"}, Row{8, 0xFF, 16, "YAE colors"},
        Row{8, 0x01, 0, "old"}, Row{4, 0, 16, "16 colors"}, Row{2, 0, 4, "4 colors"}, Row{1, 0, 16, "16 colors"},
        Row{1, 0, 2, "2 colors"}, Row{1, 0, 4, "old"}, Row{3, 0, 8, "old"}}) {
    TestViewer window;
    ViewerState &viewer = window.viewer;
    const auto labels = [&model = viewer.window] {
      return model.Label1 + "|" + model.Label2 + "|" + model.Label3 + "|" + model.Label4;
    };
    describePicture(viewer, {row.bitsPerPixel, row.colourMode, row.colourCount, kTrue, kTrue, kTrue, 7, 212});
    viewer.window.Label3 = viewer.window.Label4 = "old";
    viewer.fileLoaded = kTrue;
    viewer.activity = Activity::kPlaying;
    showPictureInfo(viewer);
    EXPECT_EQ(labels(), "||old|old");
    viewer.activity = Activity::kIdle;
    showPictureInfo(viewer);
    EXPECT_EQ(labels(), "7x212|" + std::to_string(row.bitsPerPixel) + " bpp|" + row.text + "|");
    viewer.fileLoaded = kFalse;
    showPictureInfo(viewer);
    EXPECT_EQ(labels(), "|||");
  }
}

TEST(PictureSettings, KeepWhatTheyDoNotName) {
  ViewerState viewer;
  describePicture(viewer, {4, 0x40, 16, kTrue, kTrue, kTrue, 5, 6});
  describePicture(viewer, {.bitsPerPixel = 2, .colourMode = kKept, .colourCount = 3, .isPacked = kKept});
  EXPECT_EQ(viewer.bitsPerPixel + viewer.colourMode + viewer.colourCount, 2 + 0x40 + 3);
  EXPECT_EQ(viewer.hasPalette & viewer.isPacked & viewer.spriteMode, kTrue);
  EXPECT_EQ(viewer.imageWidth + viewer.imageHeight, 0);
}

TEST(Requests, ALaterOneReplacesAnEarlierOneExceptThatExitStays) {
  ViewerState viewer;
  viewer.activity = Activity::kPlaying;
  EXPECT_TRUE(videoPlaying(viewer));
  for (const auto kind : {Request::kStop, Request::kOpen, Request::kClose, Request::kExit, Request::kOpen}) {
    requestAfterwards(viewer, {kind, "path"});
    EXPECT_EQ(viewer.request.kind, std::max(viewer.request.kind, kind));
    EXPECT_FALSE(videoPlaying(viewer));
  }
  EXPECT_EQ(viewer.request.kind, Request::kExit);
}

} // namespace
