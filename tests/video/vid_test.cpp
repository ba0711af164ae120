#include "core/folder_navigation.h"
#include "support/scarce_memory.h"
#include "video/video_files.h"

namespace {

constexpr uint32_t kColours[16] = {0xFFFF91, 0x000000, 0xFF9100, 0x910000, 0x00FFFF, 0x000091, 0x9191FF, 0x0000FF,
                                   0xFFFFFF, 0x009100, 0x00FF00, 0xFF00FF, 0xFFFF00, 0x919191, 0xFF9191, 0xFF0000};

TEST(Vid, ARefusedFileLeavesThePicture) {
  const size_t scarce = 99; // valid, but there is not enough memory
  for (const size_t place : {size_t{7}, size_t{8}, size_t{9}, size_t{13}, size_t{18}, size_t{19}, scarce}) {
    SCOPED_TRACE(place);
    TestViewer test;
    test.open("before.SC8", kScreen8File);
    Bytes file = vidFile({10, 1, 1024, 512}, {});
    ++file[place];
    scarceMemory() = {.refusedBlock = place == scarce};
    test.open("x.VID", file);
    scarceMemory() = {};
    EXPECT_EQ(test.viewer.loadError, place == scarce ? "*** Error: Not enough memory." : "o_O");
    EXPECT_EQ(std::ranges::count(test.platform.log, "showMessage Korilan: o_O"), place != scarce);
    EXPECT_EQ(test.viewer.window.Label1, "256x212");
    EXPECT_EQ(videoSigns(test.viewer), 0);
  }
}

TEST(Vid, FirstFrame) {
  Bytes frames(32640);
  for (size_t i = 0; i < frames.size(); ++i) frames[i] = static_cast<uint8_t>(i % 8 * 0x22 + 1);
  using Row = std::tuple<VidHeader, std::string, size_t>; // colours of the first pixels; black is 1
  for (const auto &[header, colours, pixels] :
       {Row{{10, 0}, "0123", 4}, Row{{10, 1, 3, 2}, "011231", 6}, Row{{10, 1, 6, 1, 1}, "000211", 6},
        Row{{10, 1, -4}, "", 0}, Row{{10, 1, 4, -1}, "", 0}, Row{{10, 1, 4, 1, 7, -1}, "0000", 4},
        Row{{10, 1, 6}, "012345", 6}, Row{{10, 1, 8}, "01234500", 8}, // a byte more than the frame, two more
        Row{{10, 1, 256, 256, 7, 32640}, "11111111", 65536}, Row{{10, 1, 32767, 32767}, "11111111", 63993951}}) {
    SCOPED_TRACE(testing::Message() << header.width << "x" << header.height << " of " << header.frameSize);
    TestViewer test;
    test.open("x.VID", vidFile(header, frames));
    std::string shown;
    for (size_t i = 0; i < colours.size(); ++i) {
      shown += "0123456789ABCDEF"[std::ranges::find(kColours, test.viewer.frameBits[i]) - kColours];
    }
    EXPECT_EQ(shown, colours);
    EXPECT_EQ(test.viewer.frameBits.size(), pixels);
    const auto log = test.platform.log;
    Image1_Click(test.viewer);
    EXPECT_EQ(test.platform.log == log, header.frameCount <= 0);
  }
}

// Only paging gives a second file the row length of its own.
TEST(Vid, RowLengthOfAnEarlierFile) {
  for (const bool paging : {false, true}) {
    TestViewer test;
    memoryDisk()["d\\a.VID"] = vidFile({10, 1, 2, 2}, {0x12, 0x34});
    test.open("d\\b.VID", vidFile({10, 1, 4, 1}, {0x12, 0x34}));
    paging ? openNextFile(test.viewer) : openPath(test.viewer, "d\\a.VID");
    EXPECT_EQ(test.viewer.frameBits[2], paging ? kColours[3] : 0);
  }
}

} // namespace
