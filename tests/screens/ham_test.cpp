#include "core/image_info.h"
#include "screens/picture_bytes.h"

namespace {

// Even and odd palette at 0x100 and 0x800, even and odd pixels at 0x1000 and 0x10000.
Bytes header(int height, uint8_t interlace) {
  const Bytes offsets = joined({word(0x100), word(0), word(0x800), word(0), word(0x1000), word(0), word(0), word(1)});
  return joined({{'H', 'A', 'M', 1, 0x20, 0, 0xEE, interlace}, word(512), word(height), Bytes(4, 0xEE), offsets});
}

TEST(Ham, LinesOfBothPages) {
  const uint32_t red = 0xFF0000, dim = 0x240000, green = 0x00FF00, blue = 0x0000FF;
  const Bytes first{0, 0, 0x90, 8, 0x0F, 0x80}, odd{0, 0, 0x80, 15}; // levels above 7 are cut
  const Bytes changes{1, 0x70, 0, 2, 0, 7};                          // behind the first line
  const Bytes even = withBytesAt(first, 32, changes), pixels(1024, 0x12);
  using Row = std::tuple<int, uint8_t, std::vector<uint32_t>>; // the left two pixels of each line
  for (const auto &[height, interlace, expected] :
       {Row{0, 0, {}}, Row{1, 0, {dim, blue}}, Row{3, 0, {dim, blue, green, 0, 0, 0}},
        Row{4, 0, {dim, blue, green, 0, red, green, green, 0}}, Row{2, 2, {dim, blue, green, 0}},
        Row{5, 0, {dim, blue, green, 0, red, green, green, 0, red, green}},
        Row{2, 1, {dim, blue, green, 0, red, green, green, 0}}}) {
    SCOPED_TRACE(testing::Message() << height << " lines, interlace " << int{interlace});
    const Bytes file = withBytesAt(withBytesAt(header(height, interlace), 0x100, even), 0x800, odd);
    TestViewer window;
    window.open("x.HAM", withBytesAt(withBytesAt(file, 0x1000, pixels), 0x10000, pixels));
    std::vector<uint32_t> left;
    for (size_t n = 0; n < window.viewer.frameBits.size(); n += n % 512 == 0 ? 1 : 511)
      left.push_back(window.viewer.frameBits[n]);
    EXPECT_EQ(left, expected);
    const std::string details = "Storage mode:\t0\nInterlace:\t" + std::string(interlace == 1 ? "yes" : "no") +
                                "\nPalette changes:\t2 after each line\n";
    EXPECT_TRUE(imageInfo(window.viewer).ends_with(details));
  }
}

} // namespace
