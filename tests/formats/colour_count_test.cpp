#include "core/colour_count.h"

#include "support/test_viewer.h"

#include <gtest/gtest.h>
#include <numeric>
#include <tuple>

namespace {

TEST(ColourCount, DistinctColours) {
  using Row = std::pair<std::vector<uint32_t>, int32_t>;
  for (const auto &[frame, expected] :
       {Row{{}, 0}, Row{{0}, 1}, Row{std::vector<uint32_t>(1000, 0x123456), 1}, Row{{0, 0xFFFFFF, 0, 0xFFFFFF}, 2},
        Row{{7, 8, 63, 64, 65, 8, 64}, 5}, Row{{0x000001, 0x000100, 0x010000}, 3},
        Row{{0x00123456, 0xFF123456}, 1}}) { // the top byte is no colour
    EXPECT_EQ(CountUniqueColours(frame), expected) << testing::PrintToString(frame);
  }
  std::vector<uint32_t> spread;
  for (uint32_t i = 0; i < 200000; ++i) spread.push_back(i % 100000 * 167);
  EXPECT_EQ(CountUniqueColours(spread), 100000);
}

TEST(ColourCount, ColoursThatTheDisplayAddsAreNotTold) {
  using Row = std::tuple<const char *, uint8_t, size_t, int32_t>;
  for (const auto &[extension, bitsPerPixel, counted, shown] :
       {Row{".SC5", 4, 15, 15},        Row{".SC5", 4, 16, 16},        Row{".SC5", 4, 17, 16},
        Row{".SC6", 2, 4, 4},          Row{".SC6", 2, 5, 4},          Row{".TGS", 3, 8, 8},
        Row{".TGS", 3, 9, 8},          Row{".SC8", 8, 256, 256},      Row{".SC8", 8, 257, 256},
        Row{".G9B", 16, 65536, 65536}, Row{".G9B", 16, 65537, 65536}, Row{".SC2", 1, 16, 16},
        Row{".SR2", 1, 17, 16},        Row{".SC4", 0, 17, 16},        Row{".SR4", 0, 17, 16},
        Row{".SC2", 1, 3, 3},          Row{".SC2", 2, 5, 4},          Row{".PCT", 1, 2, 2},
        Row{".PCT", 1, 3, 2},          Row{".PCT", 1, 4, 4},          Row{".PCT", 0, 3, 2},
        Row{".HAM", 4, 500, 500},      Row{".HAM", 1, 3, 3},          Row{".VID", 4, 1, 0},
        Row{".VID", 4, 17, 16},        Row{".VID", 4, 18, 16},        Row{".VID", 1, 3, 2},
        Row{".VID", 1, 4, 2},          Row{".VID", 1, 5, 4},          Row{"", 1, 3, 2}}) {
    ViewerState viewer;
    viewer.fileExtension = extension;
    viewer.bitsPerPixel = bitsPerPixel;
    viewer.frameBits.resize(counted);
    std::iota(viewer.frameBits.begin(), viewer.frameBits.end(), 0u);
    EXPECT_EQ(shownColourCount(viewer), shown) << extension << " " << int{bitsPerPixel} << " " << counted;
  }
}

TEST(ColourCount, Message) {
  using Row = std::tuple<const char *, size_t, const char *>;
  for (const auto &[extension, counted, number] :
       {Row{".SC5", 1, " 1"}, Row{".SC5", 17, " 16"}, Row{".SC5", 0, " 0"}, Row{".HAM", 1234, " 1234"},
        Row{".VID", 1, " 0"}, Row{".VID", 0, "-1"}}) {
    TestViewer window;
    window.viewer.fileExtension = extension;
    window.viewer.bitsPerPixel = 4;
    window.viewer.frameBits.resize(counted);
    std::iota(window.viewer.frameBits.begin(), window.viewer.frameBits.end(), 0u);
    menuCountColors_Click(window.viewer);
    EXPECT_EQ(
        window.platform.log,
        std::vector<std::string>{"showMessage (i) Image Color Count: The amount of unique colors in this image is" +
                                 std::string(number) + "."});
  }
}

} // namespace
