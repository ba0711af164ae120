#include "core/bitmap_export.h"

#include "support/bload_builder.h"
#include "support/test_viewer.h"
#include "support/viewer_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

TEST(BitmapExport, FileByteForByte) {
  const uint32_t frame[] = {0x010203, 0x040506, 0x070809, 0xFFFEFD}; // two rows
  // clang-format off
  const Bytes expected{
      'B', 'M',               // mark
      70, 0, 0, 0,            // length of the file
      0, 0, 0, 0,
      54, 0, 0, 0,            // offset of the rows
      40, 0, 0, 0,            // length of the information header
      2, 0, 0, 0,             // width
      2, 0, 0, 0,             // height: bottom row first
      1, 0,                   // planes
      24, 0,                  // bits per pixel
      0, 0, 0, 0,             // uncompressed
      16, 0, 0, 0,            // length of the rows
      0, 0, 0, 0, 0, 0, 0, 0, // pixels per metre
      0, 0, 0, 0, 0, 0, 0, 0, // colours
      0x09, 0x08, 0x07, 0xFD, 0xFE, 0xFF, 0, 0,
      0x03, 0x02, 0x01, 0x06, 0x05, 0x04, 0, 0,
  };
  // clang-format on
  EXPECT_EQ(encodeBitmap(frame, 2, 2), expected);
}

TEST(BitmapExport, Version5Header) {
  const uint32_t frame[] = {0x010203, 0x040506, 0x070809, 0xFFFEFD}; // two rows
  Bytes expected(124);
  const auto put = [&](size_t offset, const Bytes &bytes) { expected = withBytesAt(expected, offset, bytes); };
  put(0, {124});                                                    // length of the header
  put(4, {2});                                                      // width
  put(8, {2});                                                      // height: bottom row first
  put(12, {1});                                                     // planes
  put(14, {24});                                                    // bits per pixel
  put(20, {16});                                                    // length of the rows
  put(56, {'B', 'G', 'R', 's'});                                    // colours are sRGB
  put(108, {2});                                                    // intent: graphics
  put(124, {0x09, 0x08, 0x07, 0xFD, 0xFE, 0xFF, 0, 0, 3, 2, 1, 6}); // rows
  put(136, {5, 4, 0, 0});
  EXPECT_EQ(encodeBitmapV5(frame, 2, 2), expected);
}

// Widths of every fill, files of several pieces, rows of several pieces.
TEST(BitmapExport, RowsInPiecesAndInOne) {
  for (const auto &[width, height] : {std::pair<size_t, size_t>{0, 5},
                                      {5, 0},
                                      {1, 2},
                                      {2, 2},
                                      {3, 2},
                                      {4, 2},
                                      {5, 2},
                                      {7, 3000},
                                      {10'921, 3},
                                      {12'001, 3},
                                      {30'000, 2}}) {
    SCOPED_TRACE(testing::Message() << width << " x " << height);
    std::vector<uint32_t> frame(width * height);
    Bytes rows;
    for (size_t y = height; y-- > 0;) {
      for (size_t x = 0; x < width; ++x) {
        const auto n = static_cast<uint32_t>(y * width + x + 1);
        frame[y * width + x] = n;
        rows.insert(rows.end(),
                    {static_cast<uint8_t>(n), static_cast<uint8_t>(n / 256), static_cast<uint8_t>(n / 65536)});
      }
      rows.resize((rows.size() + 3) / 4 * 4);
    }
    const auto columns = static_cast<int32_t>(width);
    const auto lines = static_cast<int32_t>(height);
    const Bytes file = encodeBitmap(frame, columns, lines);
    EXPECT_TRUE(Bytes(file.begin() + 54, file.end()) == rows);
    Bytes written;
    size_t failing = 0;
    const auto put = [&](std::span<const uint8_t> piece) {
      written.insert(written.end(), piece.begin(), piece.end());
      return std::string(--failing == 0 ? "disk is full" : "");
    };
    EXPECT_EQ(putBitmap(frame, columns, lines, put), "");
    EXPECT_TRUE(written == file);
    failing = 2; // the headers are the first piece
    EXPECT_EQ(putBitmap(frame, columns, lines, put), rows.empty() ? "" : "disk is full");
    EXPECT_EQ(failing, rows.empty() ? 1 : 0); // and nothing comes after it
  }
}

TEST(BitmapExport, NameBesideTheSourceFile) {
  using Row = std::tuple<const char *, const char *, bool, bool, int32_t, const char *>;
  for (const auto &[folder, name, evaOpen, vidOpen, frame, expected] :
       {Row{"C:\\d.x\\", "a.SC5", false, false, 7, "C:\\d.x\\a.bmp"},
        Row{"", "name.ab", false, false, 7, "namebmp"}, // always three characters
        Row{"d\\", "movie.EVA", true, false, 0, "d\\movie - 0000.bmp"},
        Row{"d\\", "movie.VID", false, true, 12, "d\\movie - 0012.bmp"},
        Row{"d\\", "movie.VID", false, true, 10000, "d\\movie - 10000.bmp"}}) {
    ViewerState viewer;
    viewer.picturePath = std::string(folder) + name;
    viewer.evaPlayer.fileOpen = toFlag(evaOpen);
    viewer.vidPlayer.fileOpen = toFlag(vidOpen);
    viewer.window.HScroll1.value = frame;
    EXPECT_EQ(bitmapPath(viewer), expected);
  }
}

TEST(BitmapExport, SavesThePictureAtItsOwnSize) {
  TestViewer window;
  memoryDisk()["d\\a.bmp"] = {1, 2, 3}; // is replaced
  window.open("d\\a.SC7", BloadBuilder{.body = {0x1F}}.build());
  menuSaveBMP_Click(window.viewer);
  const Bytes &file = memoryDisk().at("d\\a.bmp");
  ASSERT_EQ(file.size(), 54u + 512 * 212 * 3);
  // The pixels at the top left begin the last row of the file: standard colours 1, 15 and 0.
  const auto row = file.end() - 512 * 3;
  EXPECT_EQ(Bytes(row, row + 9), (Bytes{8, 8, 8, 255, 255, 255, 0, 0, 0}));
  menuCopyClipboard_Click(window.viewer);
  EXPECT_EQ(window.platform.clipboard, Bytes(file.begin() + 14, file.end()));

  for (const char *refused : {"holiday.bmp", "notes.SC8"}) { // their bitmaps must not be written over
    window.open(refused, {1, 2, 3});
    EXPECT_EQ(bitmapPath(window.viewer), "d\\a.bmp");
  }
}

TEST(BitmapExport, FailureOnlyShowsAMessage) {
  TestViewer window;
  window.open("locked.SC5", BloadBuilder{}.build());
  const std::string before = pictureText(window.viewer);
  window.platform.log.clear();
  menuSaveBMP_Click(window.viewer);
  EXPECT_EQ(window.platform.log,
            std::vector<std::string>{"showMessage (!) Korilan: Could not save locked.bmp\n\ndisk is locked"});
  EXPECT_EQ(pictureText(window.viewer), before);
  EXPECT_EQ(window.viewer.window.Label4, "");
}

} // namespace
